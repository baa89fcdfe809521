// The functions of the library, as <quorvan/export/checked.h> and <quorvan/reading/read.h> declare them,
// and what goes wrong as an exception.
//
// quorvan.dll stands beside the program or on the path; elsewhere than on Windows libquorvan.so does,
// where the system's loader looks for libraries. Of a C "long" the library uses 32 bits; a flag has one
// byte.

using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Quorvan
{
    // What the library could not do: its number, its text, and the place in the file (0 where it is not
    // known).
    public sealed class QuorvanException : Exception
    {
        public const int BadSeries = 16;

        internal QuorvanException(int number, string text, int line, int column)
            : base("error " + number + ": " + text + (line > 0 ? " (line " + line + ")" : ""))
        {
            Number = number;
            Line = line;
            Column = column;
        }

        public int Number { get; private set; }

        public int Line { get; private set; }

        public int Column { get; private set; }
    }

    // The wide texts of the flat functions: UTF-16 on Windows, UTF-32 elsewhere. A program for Windows
    // alone writes CharSet = CharSet.Unicode into its imports instead.
    internal sealed class WideText : ICustomMarshaler
    {
        private static readonly WideText Instance = new WideText();

        private static readonly Encoding Encoding =
            Environment.OSVersion.Platform == PlatformID.Win32NT
                ? Encoding.Unicode
                : (Encoding)new UTF32Encoding(!BitConverter.IsLittleEndian, false);

        public static ICustomMarshaler GetInstance(string cookie)
        {
            return Instance;
        }

        public IntPtr MarshalManagedToNative(object text)
        {
            byte[] bytes = Encoding.GetBytes((string)text + '\0');
            IntPtr native = Marshal.AllocHGlobal(bytes.Length);
            Marshal.Copy(bytes, 0, native, bytes.Length);
            return native;
        }

        public void CleanUpNativeData(IntPtr native)
        {
            Marshal.FreeHGlobal(native);
        }

        public object MarshalNativeToManaged(IntPtr native)
        {
            throw new NotSupportedException();
        }

        public void CleanUpManagedData(object text)
        {
        }

        public int GetNativeDataSize()
        {
            return -1;
        }
    }

    internal static class Library
    {
        internal const int OutOfMemory = 1;
        internal const int NoFile = 30;
        internal const int NoMore = 40;
        internal const int NoItem = 41;
        internal const int OtherKind = 42;
        internal const int Incomplete = 43;

        private const string Name = "quorvan";
        private const CallingConvention C = CallingConvention.Cdecl;
        private const UnmanagedType Wide = UnmanagedType.CustomMarshaler;

        // Throws for the number of an error.
        internal static void Check(int result)
        {
            if (result == OutOfMemory)
            {
                throw new OutOfMemoryException();
            }
            if (result != 0)
            {
                throw new QuorvanException(result, Utf8(quorvanLastErrorText()),
                                           quorvanLastErrorLine(), quorvanLastErrorColumn());
            }
        }

        internal static string Utf8(IntPtr text)
        {
            int length = 0;
            while (Marshal.ReadByte(text, length) != 0)
            {
                ++length;
            }
            byte[] bytes = new byte[length];
            Marshal.Copy(text, bytes, 0, length);
            return Encoding.UTF8.GetString(bytes);
        }

        [DllImport(Name, CallingConvention = C)] private static extern IntPtr quorvanLastErrorText();
        [DllImport(Name, CallingConvention = C)] private static extern int quorvanLastErrorLine();
        [DllImport(Name, CallingConvention = C)] private static extern int quorvanLastErrorColumn();

        // --- reading -------------------------------------------------------------------------------

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanOpenFile(
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string path,
            out IntPtr file);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanOpenMemory(byte[] bytes, UIntPtr size, out IntPtr file);

        [DllImport(Name, CallingConvention = C)]
        internal static extern void quorvanCloseFile(IntPtr file);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanNextElement(IntPtr file, string className,
                                                      ref IntPtr element);

        [DllImport(Name, CallingConvention = C)]
        internal static extern IntPtr quorvanElementClass(IntPtr element);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanElementClassNumber(IntPtr element);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanElementVersion(IntPtr element);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanElementIndex(IntPtr element);

        [DllImport(Name, CallingConvention = C)]
        internal static extern IntPtr quorvanItem(IntPtr element, string name);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadLong(IntPtr item, ref int value);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadColor(IntPtr item, ref uint value);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadDouble(IntPtr item, ref double value);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadFlag(IntPtr item, ref int value);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadText(IntPtr item, ref IntPtr text, out UIntPtr length);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadPoint(IntPtr item, [Out] double[] xyz);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadPoints(IntPtr item, [Out] double[] xyz, UIntPtr room,
                                                     ref UIntPtr count);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadBulges(IntPtr item, [Out] double[] xyz, UIntPtr room,
                                                     ref UIntPtr count);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanReadDoubles(IntPtr item, [Out] double[] values, UIntPtr room,
                                                      ref UIntPtr count);

        [DllImport(Name, CallingConvention = C)] internal static extern int quorvanClassCount();

        [DllImport(Name, CallingConvention = C)]
        internal static extern IntPtr quorvanClassName(int number);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanClassItemCount(int number);

        [DllImport(Name, CallingConvention = C)]
        internal static extern IntPtr quorvanClassItemName(int number, int item);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanClassItemKind(int number, int item);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int quorvanClassItemIsOptional(int number, int item);
    }
}
