// From the library's elements and items to the classes of this unit: which items a class has, and of
// which kind they are, the library says itself. What it knows beyond these classes is passed over.

using System;
using System.Collections.Generic;
using System.Reflection;
using System.Runtime.InteropServices;

namespace Quorvan
{
    internal static class ElementReader
    {
        private const int Segments = 9;

        private delegate int ReadNumbers(IntPtr item, double[] numbers, UIntPtr room, ref UIntPtr count);

        // An item of a class: its name and kind, and the member that holds it.
        private sealed class Row
        {
            internal string Name;
            internal int Kind;
            internal bool IsOptional;
            internal FieldInfo Member;
        }

        private sealed class Table
        {
            internal Type Type;
            internal readonly List<Row> Rows = new List<Row>();
        }

        private static readonly Lazy<Table[]> Tables = new Lazy<Table[]>(MakeTables);

        internal static Element Read(IntPtr handle)
        {
            int number = Library.quorvanElementClassNumber(handle);
            Table table = number < 0 ? null : Tables.Value[number]; // null where it is not known here
            var element = table == null ? new Other() : (Element)Activator.CreateInstance(table.Type);
            element.ClassName = Library.Utf8(Library.quorvanElementClass(handle));
            element.Version = Library.quorvanElementVersion(handle);
            element.Index = Library.quorvanElementIndex(handle);
            if (table != null)
            {
                foreach (Row row in table.Rows)
                {
                    ReadItem(handle, row, element);
                }
            }
            return element;
        }

        private static Table[] MakeTables()
        {
            var tables = new Table[Library.quorvanClassCount()];
            for (int number = 0; number < tables.Length; ++number)
            {
                Type type;
                if (ElementClasses.Types.TryGetValue(Library.Utf8(Library.quorvanClassName(number)), out type))
                {
                    tables[number] = MakeTable(number, type);
                }
            }
            return tables;
        }

        private static Table MakeTable(int number, Type type)
        {
            var table = new Table { Type = type };
            for (int item = 0; item < Library.quorvanClassItemCount(number); ++item)
            {
                string name = Library.Utf8(Library.quorvanClassItemName(number, item));
                FieldInfo member = MemberOf(type, name);
                if (member != null)
                {
                    table.Rows.Add(new Row
                    {
                        Name = name,
                        Kind = Library.quorvanClassItemKind(number, item),
                        IsOptional = Library.quorvanClassItemIsOptional(number, item) != 0,
                        Member = member
                    });
                }
            }
            return table;
        }

        private static FieldInfo MemberOf(Type type, string item)
        {
            foreach (FieldInfo member in type.GetFields())
            {
                var named = (ItemAttribute)Attribute.GetCustomAttribute(member, typeof(ItemAttribute));
                if (named != null && named.Name == item)
                {
                    return member;
                }
            }
            return type.GetField(item);
        }

        private static void ReadItem(IntPtr handle, Row row, Element element)
        {
            IntPtr item = Library.quorvanItem(handle, row.Name);
            object value;
            int result = ReadValue(item, row.Kind, out value);
            if (value != null)
            {
                row.Member.SetValue(element, value);
            }
            if (row.Kind == Segments && value != null)
            {
                Point[] bulges;
                int resultOfBulges = ReadPoints(item, Library.quorvanReadBulges, out bulges);
                ((Formwork)element).Bulges = bulges;
                result = result != 0 ? result : resultOfBulges;
            }
            if (result == 0 || (result == Library.NoItem && row.IsOptional))
            {
                return;
            }
            element.Problems.Add(new Problem { Item = row.Name, Reason = ReasonOf(result) });
        }

        private static string ReasonOf(int result)
        {
            switch (result)
            {
                case Library.NoItem:
                    return "missing";
                case Library.OtherKind:
                    return "of another kind";
                case Library.Incomplete:
                    return "incomplete";
                default:
                    Library.Check(result);
                    return "";
            }
        }

        // Null for what could not be read.
        private static int ReadValue(IntPtr item, int kind, out object value)
        {
            value = null;
            int result;
            switch (kind)
            {
                case 1:
                    int number = 0;
                    result = Library.quorvanReadLong(item, ref number);
                    value = number;
                    break;
                case 2:
                    uint color = 0;
                    result = Library.quorvanReadColor(item, ref color);
                    value = color;
                    break;
                case 3:
                    double real = 0;
                    result = Library.quorvanReadDouble(item, ref real);
                    value = real;
                    break;
                case 4:
                    return ReadText(item, out value);
                case 5:
                    int flag = 0;
                    result = Library.quorvanReadFlag(item, ref flag);
                    value = flag != 0;
                    break;
                case 6:
                case 7:
                    var xyz = new double[3];
                    result = Library.quorvanReadPoint(item, xyz);
                    value = new Point(xyz[0], xyz[1], xyz[2]);
                    break;
                case 8:
                case Segments:
                    Point[] points;
                    result = ReadPoints(item, Library.quorvanReadPoints, out points);
                    value = points;
                    return result;
                default:
                    double[] numbers;
                    result = ReadList(item, Library.quorvanReadDoubles, 1, out numbers);
                    value = numbers;
                    return result;
            }
            if (result != 0)
            {
                value = null;
            }
            return result;
        }

        private static int ReadText(IntPtr item, out object value)
        {
            IntPtr text = IntPtr.Zero;
            UIntPtr length;
            int result = Library.quorvanReadText(item, ref text, out length);
            value = result == 0 ? Library.Utf8(text) : null;
            return result;
        }

        // The numbers of the entries one behind the other; null where it is no list.
        private static int ReadList(IntPtr item, ReadNumbers read, int width, out double[] numbers)
        {
            UIntPtr count = UIntPtr.Zero;
            numbers = null;
            int result = read(item, null, UIntPtr.Zero, ref count);
            if (result != 0 && result != Library.Incomplete)
            {
                return result;
            }
            numbers = new double[width * (int)count];
            return numbers.Length == 0 ? result : read(item, numbers, count, ref count);
        }

        private static int ReadPoints(IntPtr item, ReadNumbers read, out Point[] points)
        {
            double[] numbers;
            int result = ReadList(item, read, 3, out numbers);
            points = null;
            if (numbers != null)
            {
                points = new Point[numbers.Length / 3];
                for (int i = 0; i < points.Length; ++i)
                {
                    points[i] = new Point(numbers[3 * i], numbers[3 * i + 1], numbers[3 * i + 2]);
                }
            }
            return result;
        }
    }
}
