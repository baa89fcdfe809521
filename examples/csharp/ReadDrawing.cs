// A reader in C#: lists every element of a drawing with its items, an element a line, and files the
// elements again.
//
//   ReadDrawing FILE [COPY]

using System;
using System.Collections.Generic;
using System.Globalization;
using System.Linq;
using System.Reflection;
using System.Text;
using Quorvan;

internal static class ReadDrawing
{
    // Three decimals, and no zero with a sign.
    private static string Number(double value)
    {
        string text = value.ToString("F3", CultureInfo.InvariantCulture);
        return text == "-0.000" ? "0.000" : text;
    }

    private static string PointText(Point point)
    {
        return "(" + Number(point.X) + " " + Number(point.Y) + " " + Number(point.Z) + ")";
    }

    private static string Value(object value)
    {
        if (value is Point)
        {
            return PointText((Point)value);
        }
        if (value is double)
        {
            return Number((double)value);
        }
        var points = value as IEnumerable<Point>;
        if (points != null)
        {
            return "[" + string.Join(" ", points.Select(PointText)) + "]";
        }
        var numbers = value as IEnumerable<double>;
        if (numbers != null)
        {
            return "[" + string.Join(" ", numbers.Select(Number)) + "]";
        }
        if (value is bool)
        {
            return (bool)value ? "yes" : "no";
        }
        return Convert.ToString(value, CultureInfo.InvariantCulture);
    }

    // The name of the item, which most members bear.
    private static string NameOf(FieldInfo member)
    {
        var named = (ItemAttribute)Attribute.GetCustomAttribute(member, typeof(ItemAttribute));
        return named == null ? member.Name : named.Name;
    }

    private static string LineOf(Element element)
    {
        var line = new StringBuilder(element.ClassName + " " + element.Index);
        var items = element.GetType().GetFields()
                           .Where(member => member.DeclaringType != typeof(Element))
                           .OrderBy(NameOf, StringComparer.Ordinal);
        foreach (FieldInfo item in items)
        {
            line.Append(", " + NameOf(item) + " " + Value(item.GetValue(element)));
        }
        foreach (Problem problem in element.Problems)
        {
            line.Append(", " + problem.Item + " is " + problem.Reason);
        }
        return line.ToString();
    }

    private static void List(Drawing drawing)
    {
        foreach (Element element in drawing)
        {
            Console.Out.Write(LineOf(element) + "\n");
        }
        Console.Out.Write(drawing.Count + " elements, " + drawing.Bars.Count() + " bars\n");
        foreach (Repartition series in drawing.Series)
        {
            var bar = drawing.BarOf(series) as Bar;
            Console.Out.Write("series of " + (series.Positions.Length + 1) + " bars of mark " +
                              (bar == null ? "none" : bar.Reference.ToString()) + "\n");
        }
    }

    private static void Copy(Drawing drawing, string path)
    {
        DrawingControl control = drawing.Control ?? new DrawingControl();
        using (var filing = new Filing(path))
        {
            foreach (Element element in drawing.Where(element => element != control))
            {
                filing.TryAdd(element);
            }
            filing.End(control.DrawingName, control.ZantoVersion, control.ServicePack, control.CheckSum);
        }
    }

    private static int Main(string[] arguments)
    {
        Console.OutputEncoding = new UTF8Encoding(false);
        if (arguments.Length != 1 && arguments.Length != 2)
        {
            Console.Error.WriteLine("usage: ReadDrawing FILE [COPY]");
            return 2;
        }
        try
        {
            Drawing drawing = Drawing.Read(arguments[0]);
            List(drawing);
            if (arguments.Length == 2)
            {
                Copy(drawing, arguments[1]);
            }
        }
        catch (QuorvanException error)
        {
            Console.Error.WriteLine(arguments[0] + ": " + error.Message);
            return 1;
        }
        return 0;
    }
}
