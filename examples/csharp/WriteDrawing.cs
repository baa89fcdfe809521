// A host in C# that writes a small drawing: the elevation of a beam with its bottom bar and its
// links.
//
//   WriteDrawing FILE [LINKS]
//
// quorvan.dll stands beside the program or on the path; elsewhere than on Windows libquorvan.so does,
// where the system's loader looks for libraries. Lengths are in millimetres. Whatever goes wrong is told,
// and what can be saved is saved.

using System;
using System.Runtime.InteropServices;
using System.Text;

// The wide texts of the flat functions: UTF-16 on Windows, UTF-32 elsewhere. A host for Windows alone
// writes CharSet = CharSet.Unicode into its imports instead.
internal sealed class WideText : ICustomMarshaler
{
    private static readonly WideText Instance = new WideText();

    private static readonly Encoding Encoding =
        Environment.OSVersion.Platform == PlatformID.Win32NT ? Encoding.Unicode : Encoding.UTF32;

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

// The flat functions that this host uses, as <quorvan/export/checked.h> declares them. They return 0 or
// the number of an error. Of a C "long" they use 32 bits; a flag has one byte.
internal static class Quorvan
{
    private const string Library = "quorvan";
    private const UnmanagedType Wide = UnmanagedType.CustomMarshaler;

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int startFilingChecked(
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string path);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int stopFilingChecked();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    private static extern IntPtr quorvanLastErrorText();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int endFilingChecked(
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string version, int servicePack,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string drawing, int checkSum);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int exportFormworkChecked(
        int count, double[] xs, double[] ys, double[] zs,
        double[] bulgeXs, double[] bulgeYs, double[] bulgeZs);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int exportTextChecked(
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string contents,
        double x, double y, double z, double angle, uint color,
        int justificationX, int justificationY, double height);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int exportBarStraightChecked(
        double x1, double y1, double z1, double x2, double y2, double z2,
        double hookLength1, double hookLength2,
        [MarshalAs(UnmanagedType.I1)] bool hook1Up, [MarshalAs(UnmanagedType.I1)] bool hook2Up,
        double hookAngle1, double hookAngle2,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
        int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int exportFrameRectChecked(
        double x1, double y1, double z1, double x2, double y2, double z2,
        double x3, double y3, double z3, double hookLength, double hookAngle,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
        int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int pushRepartitionFrameRectChecked(
        double x1, double y1, double z1, double x2, double y2, double z2,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string className,
        double hookLength, double hookAngle,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
        [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
        int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden,
        int key, int viewPoint, int last);

    // Throws for the number of an error.
    internal static void Check(int result)
    {
        if (result != 0)
        {
            throw new QuorvanException(result, Marshal.PtrToStringAnsi(quorvanLastErrorText()));
        }
    }
}

internal sealed class QuorvanException : Exception
{
    internal const int BadSeries = 16;

    internal QuorvanException(int number, string text)
        : base("error " + number + ": " + text)
    {
        Number = number;
    }

    internal int Number { get; private set; }
}

internal static class WriteDrawing
{
    private static void FileElements(int links)
    {
        // Four sides of 5000 x 500, two points a side, one bulge a side: straight.
        double[] xs = { 0, 5000, 5000, 5000, 5000, 0, 0, 0 };
        double[] ys = { 0, 0, 0, 500, 500, 500, 500, 0 };
        double[] zs = { 0, 0, 0, 0, 0, 0, 0, 0 };
        double[] straight = { 0, 0, 0, 0 };

        Quorvan.Check(Quorvan.exportFormworkChecked(8, xs, ys, zs, straight, straight, straight));
        Quorvan.Check(Quorvan.exportTextChecked("Poutre B12 \u2013 1 \u00f8 20", 0, 600, 0, 0, 7, 0, 0,
                                                100));
        Quorvan.Check(Quorvan.exportBarStraightChecked(30, 40, 0, 4970, 40, 0, 150, 150, true, true, 90,
                                                       90, "B500B", "HA", 1, 20, false));
        Quorvan.Check(Quorvan.exportFrameRectChecked(200, 30, 0, 200, 470, 0, 200, 470, 240, 80, 135,
                                                     "B500B", "HA", 2, 8, false));
        for (int link = 0; link < links; ++link)
        {
            double x = 200 + 200 * link;
            Quorvan.Check(Quorvan.pushRepartitionFrameRectChecked(
                x, 30, 0, x, 470, 0, "CKtZantoFrameRect", 80, 135, "B500B", "HA", 2, 8, false, 1, 1,
                0));
        }
    }

    private static void End()
    {
        Quorvan.Check(Quorvan.endFilingChecked("2025", 1, "B12", 42));
    }

    private static void Write(string path, int links)
    {
        Quorvan.Check(Quorvan.startFilingChecked(path));
        FileElements(links);
        try
        {
            End();
        }
        catch (QuorvanException error)
        {
            if (error.Number == QuorvanException.BadSeries)
            {
                // Saves the drawing without the series.
                Quorvan.Check(Quorvan.stopFilingChecked());
                End();
            }
            throw;
        }
    }

    private static int Main(string[] arguments)
    {
        if (arguments.Length != 1 && arguments.Length != 2)
        {
            Console.Error.WriteLine("usage: WriteDrawing FILE [LINKS]");
            return 2;
        }
        try
        {
            Write(arguments[0], arguments.Length == 2 ? int.Parse(arguments[1]) : 24);
        }
        catch (QuorvanException error)
        {
            Console.Error.WriteLine(arguments[0] + ": " + error.Message);
            return 1;
        }
        return 0;
    }
}
