// The elements of a drawing, a class for each. Members bear the names of the items; lengths and angles are
// in the units of the producing program. What is missing in the file has the value of a new object, and
// stands in Problems.
//
// What stands between the two lines is made from the item tables of the library;
// `QUORVAN_UPDATE_GOLDEN=1 tools_tests --gtest_filter='*ReaderSources*'` writes it anew.

using System;
using System.Collections.Generic;

namespace Quorvan
{
    // A point or a vector.
    public struct Point
    {
        public double X, Y, Z;

        public Point(double x, double y, double z)
        {
            X = x;
            Y = y;
            Z = z;
        }
    }

    // An item that could not be read, or not all of it: "missing", "of another kind", "incomplete".
    public struct Problem
    {
        public string Item, Reason;
    }

    // The name of the item in the file, where it is not that of the member.
    [AttributeUsage(AttributeTargets.Field)]
    public sealed class ItemAttribute : Attribute
    {
        public ItemAttribute(string name)
        {
            Name = name;
        }

        public string Name { get; private set; }
    }

    // What every element has.
    public abstract class Element
    {
        public string ClassName;
        public int Version, Index;
        public readonly List<Problem> Problems = new List<Problem>();
    }

    // An element of a class that is not known.
    public sealed class Other : Element
    {
    }

    // --- made from the item tables ---------------------------------------------------------------

    // What every bar and link has.
    public abstract class Bar : Element
    {
        public string SteelGrade = "", Adherence = "";
        public double Diameter;
        public int Reference;
        public bool Hidden;
    }

    // A line segment of the drawing.
    public sealed class Line : Element
    {
        public Point Point1, Point2;
        public uint Color;
    }

    // A circle of the drawing.
    public sealed class Circle : Element
    {
        public Point Center;
        public double Radius;
        public uint Color;
    }

    // A single line of text.
    public sealed class Text : Element
    {
        public string Contents = "";
        public Point Location;
        public double Angle, Height;
        public int JustificationX, JustificationY;
        public uint Color;
    }

    // A filled polygon of the drawing.
    public sealed class FilledPolygon : Element
    {
        [Item("Vector")] public Point[] Points = { };
        public uint Color;
    }

    // A sheet of welded mesh.
    public sealed class Mesh : Element
    {
        public string Type = "", Reference = "";
        public double Angle, ExtensionX, ExtensionY;
        [Item("Vector")] public Point[] Points = { };
    }

    // An outline of the concrete. Two points and one bulge a segment.
    public sealed class Formwork : Element
    {
        [Item("Vector")] public Point[] Points = { };
        public Point[] Bulges = { };
    }

    // A straight bar with a hook at either end.
    public sealed class StraightBar : Bar
    {
        public Point Point1, Point2;
        public double HookLength1, HookLength2, HookAngle1, HookAngle2;
        public bool Hook1Up, Hook2Up;
    }

    // A bar bent once (L shape).
    public sealed class LBar : Bar
    {
        public Point Point1, Point2, Point3;
        public double HookLength1, HookAngle1, HookLength2, HookAngle2;
    }

    // A bar bent twice (U shape).
    public sealed class UBar : Bar
    {
        public Point Point1, Point2, Point3;
        public double HookLength1, HookAngle1, HookLength2, HookAngle2;
    }

    // A pin: a straight tie with hooks.
    public sealed class Pin : Bar
    {
        public Point Point1, Point2;
        public double HookLength1, HookLength2, HookAngle1, HookAngle2;
    }

    // A bar seen end-on.
    public sealed class PointBar : Bar
    {
        public Point Point1;
    }

    // A bent bar given by its polyline.
    public sealed class PolygonBar : Bar
    {
        [Item("NoPoints")] public Point[] Points = { };
        public double HookLength1, HookLength2, HookAngle1, HookAngle2;
        public bool Side;
    }

    // A closed rectangular link.
    public sealed class FrameRect : Bar
    {
        public Point Point1, Point2, Point3;
        public double HookLength1, HookAngle1;
    }

    // A closed circular link.
    public sealed class FrameCirc : Bar
    {
        public Point Center, StartPoint;
        public double FrameRadius, RecoverLength, HookLength1, HookAngle1;
    }

    // An open link given by two points.
    public sealed class Stirrup : Bar
    {
        public Point Point1, Point2;
        public double HookLength1, HookAngle1;
    }

    // A distribution of identical bars along a line. It has an index of its own and that of the
    // bar.
    public sealed class Repartition : Element
    {
        public Point Point1, Point2, Bulge, Axis;
        public int ViewPoint;
        public double[] AxisDistancesTop = { }, AxisDistancesBottom = { }, Positions = { };
        public string DefClassName = "";
        [Item("Index")] public int BarIndex;
        public bool Hidden;
    }

    // The record that names the drawing and closes every transfer.
    public sealed class DrawingControl : Element
    {
        public string ZantoVersion = "", DrawingName = "";
        public int ServicePack, CheckSum;
    }

    // The class of each class name.
    internal static class ElementClasses
    {
        internal static readonly Dictionary<string, Type> Types = new Dictionary<string, Type>
        {
            { "CKtZantoLine", typeof(Line) },
            { "CKtZantoCircle", typeof(Circle) },
            { "CKtZantoText", typeof(Text) },
            { "CKtFilledPolygon", typeof(FilledPolygon) },
            { "CKtZantoMesh", typeof(Mesh) },
            { "CKtZantoFormwork", typeof(Formwork) },
            { "CKtZantoStraightBar", typeof(StraightBar) },
            { "CKtZantoLBar", typeof(LBar) },
            { "CKtZantoUBar", typeof(UBar) },
            { "CKtZantoPin", typeof(Pin) },
            { "CKtZantoPointBar", typeof(PointBar) },
            { "CKtZantoPolygonBar", typeof(PolygonBar) },
            { "CKtZantoFrameRect", typeof(FrameRect) },
            { "CKtZantoFrameCirc", typeof(FrameCirc) },
            { "CKtZantoStirrup", typeof(Stirrup) },
            { "CKtZantoRepartition", typeof(Repartition) },
            { "CKtDrawingControl", typeof(DrawingControl) },
        };
    }

    // --- end of what is made ---------------------------------------------------------------------
}
