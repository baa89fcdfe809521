// Writing a drawing. One filing at a time in a process, from one thread.

using System;
using System.Collections.Generic;
using System.Linq;

namespace Quorvan
{
    // An open filing; Add files one element. What is filed reaches the disk with End; without it, nothing
    // does. Elements are added to those of a file that is there. Throws QuorvanException.
    public sealed class Filing : IDisposable
    {
        // What can be filed as a whole.
        private static readonly Dictionary<Type, Action<Filing, Element>> Adders =
            new Dictionary<Type, Action<Filing, Element>>
        {
            { typeof(Line), (to, e) => to.Add((Line)e) },
            { typeof(Circle), (to, e) => to.Add((Circle)e) },
            { typeof(Text), (to, e) => to.Add((Text)e) },
            { typeof(FilledPolygon), (to, e) => to.Add((FilledPolygon)e) },
            { typeof(Mesh), (to, e) => to.Add((Mesh)e) },
            { typeof(Formwork), (to, e) => to.Add((Formwork)e) },
            { typeof(StraightBar), (to, e) => to.Add((StraightBar)e) },
            { typeof(LBar), (to, e) => to.Add((LBar)e) },
            { typeof(UBar), (to, e) => to.Add((UBar)e) },
            { typeof(Pin), (to, e) => to.Add((Pin)e) },
            { typeof(PointBar), (to, e) => to.Add((PointBar)e) },
            { typeof(PolygonBar), (to, e) => to.Add((PolygonBar)e) },
            { typeof(FrameRect), (to, e) => to.Add((FrameRect)e) },
            { typeof(FrameCirc), (to, e) => to.Add((FrameCirc)e) },
            { typeof(Stirrup), (to, e) => to.Add((Stirrup)e) },
            { typeof(DrawingControl), (to, e) => to.Add((DrawingControl)e) },
        };

        private bool isOpen;

        public Filing(string path)
        {
            Library.Check(Twins.startFilingChecked(path));
            isOpen = true;
        }

        // Version and index are the library's to give.
        public void Add(Line e)
        {
            Library.Check(Twins.exportLineChecked(e.Point1.X, e.Point1.Y, e.Point1.Z, e.Point2.X, e.Point2.Y,
                                                  e.Point2.Z, e.Color));
        }

        public void Add(Circle e)
        {
            Library.Check(Twins.exportCircleChecked(e.Center.X, e.Center.Y, e.Center.Z, e.Radius, e.Color));
        }

        public void Add(Text e)
        {
            Library.Check(Twins.exportTextChecked(e.Contents, e.Location.X, e.Location.Y, e.Location.Z,
                                                  e.Angle, e.Color, e.JustificationX, e.JustificationY,
                                                  e.Height));
        }

        public void Add(FilledPolygon e)
        {
            Library.Check(Twins.exportFilledPolygonChecked(e.Points.Length, Xs(e.Points), Ys(e.Points),
                                                           Zs(e.Points), e.Color));
        }

        public void Add(Mesh e)
        {
            Library.Check(Twins.exportMeshChecked(e.Reference, e.Type, e.ExtensionX, e.ExtensionY, e.Angle,
                                                  e.Points.Length, Xs(e.Points), Ys(e.Points),
                                                  Zs(e.Points)));
        }

        // Two points and one bulge a segment; without bulges all are straight.
        public void Add(Formwork e)
        {
            Point[] bulges = e.Bulges.Length > 0 ? e.Bulges : new Point[e.Points.Length / 2];
            if (e.Points.Length != 2 * bulges.Length)
            {
                throw new ArgumentException("a formwork has two points and one bulge for every segment");
            }
            Library.Check(Twins.exportFormworkChecked(e.Points.Length, Xs(e.Points), Ys(e.Points),
                                                      Zs(e.Points), Xs(bulges), Ys(bulges), Zs(bulges)));
        }

        public void Add(StraightBar e)
        {
            Library.Check(Twins.exportBarStraightChecked(
                e.Point1.X, e.Point1.Y, e.Point1.Z, e.Point2.X, e.Point2.Y, e.Point2.Z, e.HookLength1,
                e.HookLength2, e.Hook1Up, e.Hook2Up, e.HookAngle1, e.HookAngle2, e.SteelGrade, e.Adherence,
                e.Reference, e.Diameter, e.Hidden));
        }

        public void Add(LBar e)
        {
            Library.Check(Twins.exportLBarChecked(
                e.Point1.X, e.Point1.Y, e.Point1.Z, e.Point2.X, e.Point2.Y, e.Point2.Z, e.Point3.X,
                e.Point3.Y, e.Point3.Z, e.HookLength1, e.HookAngle1, e.HookLength2, e.HookAngle2,
                e.SteelGrade, e.Adherence, e.Reference, e.Diameter, e.Hidden));
        }

        public void Add(UBar e)
        {
            Library.Check(Twins.exportUBarChecked(
                e.Point1.X, e.Point1.Y, e.Point1.Z, e.Point2.X, e.Point2.Y, e.Point2.Z, e.Point3.X,
                e.Point3.Y, e.Point3.Z, e.HookLength1, e.HookAngle1, e.HookLength2, e.HookAngle2,
                e.SteelGrade, e.Adherence, e.Reference, e.Diameter, e.Hidden));
        }

        public void Add(Pin e)
        {
            Library.Check(Twins.exportPinChecked(
                e.Point1.X, e.Point1.Y, e.Point1.Z, e.Point2.X, e.Point2.Y, e.Point2.Z, e.HookLength1,
                e.HookLength2, e.HookAngle1, e.HookAngle2, e.SteelGrade, e.Adherence, e.Reference,
                e.Diameter, e.Hidden));
        }

        public void Add(PointBar e)
        {
            Library.Check(Twins.exportPointBarChecked(e.Point1.X, e.Point1.Y, e.Point1.Z, e.SteelGrade,
                                                      e.Adherence, e.Reference, e.Diameter, e.Hidden));
        }

        public void Add(PolygonBar e)
        {
            Library.Check(Twins.exportBarPolygonChecked(
                e.Points.Length, Xs(e.Points), Ys(e.Points), Zs(e.Points), e.HookLength1, e.HookLength2,
                e.Side, e.HookAngle1, e.HookAngle2, e.SteelGrade, e.Adherence, e.Reference, e.Diameter,
                e.Hidden));
        }

        public void Add(FrameRect e)
        {
            Library.Check(Twins.exportFrameRectChecked(
                e.Point1.X, e.Point1.Y, e.Point1.Z, e.Point2.X, e.Point2.Y, e.Point2.Z, e.Point3.X,
                e.Point3.Y, e.Point3.Z, e.HookLength1, e.HookAngle1, e.SteelGrade, e.Adherence, e.Reference,
                e.Diameter, e.Hidden));
        }

        public void Add(FrameCirc e)
        {
            Library.Check(Twins.exportFrameCircChecked(
                e.Center.X, e.Center.Y, e.Center.Z, e.StartPoint.X, e.StartPoint.Y, e.StartPoint.Z,
                e.FrameRadius, e.RecoverLength, e.HookLength1, e.HookAngle1, e.SteelGrade, e.Adherence,
                e.Reference, e.Diameter, e.Hidden));
        }

        public void Add(Stirrup e)
        {
            Library.Check(Twins.exportStirrupChecked(
                e.Point1.X, e.Point1.Y, e.Point1.Z, e.Point2.X, e.Point2.Y, e.Point2.Z, e.HookLength1,
                e.HookAngle1, e.SteelGrade, e.Adherence, e.Reference, e.Diameter, e.Hidden));
        }

        // A record beside the one that every filing ends with.
        public void Add(DrawingControl e)
        {
            Library.Check(Twins.exportDrawingControlChecked(e.ZantoVersion, e.ServicePack, e.CheckSum,
                                                            e.DrawingName));
        }

        // What a drawing held. False for a series, which is filed frame by frame, and for a class that is
        // not known.
        public bool TryAdd(Element element)
        {
            Action<Filing, Element> add;
            if (!Adders.TryGetValue(element.GetType(), out add))
            {
                return false;
            }
            add(this, element);
            return true;
        }

        // One frame of a series, of which there must be two at the least: the bar from `point1` to `point2`
        // in the view, of the class and with the attributes of `bar`.
        public void AddSeriesFrame(Point point1, Point point2, string className, double hookLength,
                                   double hookAngle, Bar bar, int series, int viewPoint)
        {
            Library.Check(Twins.pushRepartitionFrameRectChecked(
                point1.X, point1.Y, point1.Z, point2.X, point2.Y, point2.Z, className, hookLength, hookAngle,
                bar.SteelGrade, bar.Adherence, bar.Reference, bar.Diameter, bar.Hidden, series, viewPoint,
                0));
        }

        // Series that cannot be ended are left out from here on, and the record with them: what to do
        // after QuorvanException.BadSeries, before another End.
        public void LeaveOutTheRest()
        {
            Library.Check(Twins.stopFilingChecked());
        }

        // Saves the drawing.
        public void End(string drawingName, string version, int servicePack, int checkSum)
        {
            Library.Check(Twins.endFilingChecked(version, servicePack, drawingName, checkSum));
            isOpen = false;
        }

        public void Dispose()
        {
            if (isOpen)
            {
                Twins.quorvanAbandonFiling();
                isOpen = false;
            }
        }

        private static double[] Xs(Point[] points)
        {
            return points.Select(point => point.X).ToArray();
        }

        private static double[] Ys(Point[] points)
        {
            return points.Select(point => point.Y).ToArray();
        }

        private static double[] Zs(Point[] points)
        {
            return points.Select(point => point.Z).ToArray();
        }
    }
}
