// The twins of the flat functions, as <quorvan/export/checked.h> declares them: they return 0 or the
// number of an error.

using System.Runtime.InteropServices;

namespace Quorvan
{
    internal static class Twins
    {
        private const string Name = "quorvan";
        private const CallingConvention C = CallingConvention.Cdecl;
        private const UnmanagedType Wide = UnmanagedType.CustomMarshaler;

        [DllImport(Name, CallingConvention = C)] internal static extern int quorvanAbandonFiling();

        [DllImport(Name, CallingConvention = C)]
        internal static extern int startFilingChecked(
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string path);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int stopFilingChecked();

        [DllImport(Name, CallingConvention = C)]
        internal static extern int endFilingChecked(
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string zantoVersion,
            int servicePack,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string drawingName,
            int checkSum);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportDrawingControlChecked(
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string zantoVersion,
            int servicePack, int checkSum,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string drawingName);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportLineChecked(
            double x1, double y1, double z1, double x2, double y2, double z2, uint color);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportCircleChecked(
            double x, double y, double z, double radius, uint color);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportTextChecked(
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string contents,
            double x, double y, double z, double angle, uint color, int justificationX, int justificationY,
            double height);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportMeshChecked(
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string reference,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string type,
            double extensionX, double extensionY, double angle, int count, double[] xs, double[] ys,
            double[] zs);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportFilledPolygonChecked(
            int count, double[] xs, double[] ys, double[] zs, uint color);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportFormworkChecked(
            int count, double[] xs, double[] ys, double[] zs, double[] bxs, double[] bys, double[] bzs);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportBarStraightChecked(
            double x1, double y1, double z1, double x2, double y2, double z2, double hookLength1,
            double hookLength2, [MarshalAs(UnmanagedType.I1)] bool hook1Up,
            [MarshalAs(UnmanagedType.I1)] bool hook2Up, double hookAngle1, double hookAngle2,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportBarPolygonChecked(
            int count, double[] xs, double[] ys, double[] zs, double hookLength1, double hookLength2,
            [MarshalAs(UnmanagedType.I1)] bool side, double hookAngle1, double hookAngle2,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportLBarChecked(
            double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
            double z3, double hookLength1, double hookAngle1, double hookLength2, double hookAngle2,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportUBarChecked(
            double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
            double z3, double hookLength1, double hookAngle1, double hookLength2, double hookAngle2,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportPinChecked(
            double x1, double y1, double z1, double x2, double y2, double z2, double hookLength1,
            double hookLength2, double hookAngle1, double hookAngle2,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportPointBarChecked(
            double x, double y, double z,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportStirrupChecked(
            double x1, double y1, double z1, double x2, double y2, double z2, double hookLength1,
            double hookAngle1,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportFrameRectChecked(
            double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
            double z3, double hookLength1, double hookAngle1,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int exportFrameCircChecked(
            double centerX, double centerY, double centerZ, double startX, double startY, double startZ,
            double frameRadius, double recoverLength, double hookLength1, double hookAngle1,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden);

        [DllImport(Name, CallingConvention = C)]
        internal static extern int pushRepartitionFrameRectChecked(
            double value1, double value2, double value3, double value4, double value5, double value6,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string className,
            double hookLength1, double hookAngle1,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string steelGrade,
            [MarshalAs(Wide, MarshalTypeRef = typeof(WideText))] string adherence,
            int reference, double diameter, [MarshalAs(UnmanagedType.I1)] bool hidden, int keyC,
            int viewPoint, int lastInt);
    }
}
