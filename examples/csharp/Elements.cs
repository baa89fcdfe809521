// The elements of a drawing, a class for each. Members bear the names of the items; lengths and angles are
// in the units of the producing program. What is missing in the file has the value of a new object, and
// stands in Problems.

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

        // False where it cannot be filed as a whole.
        internal virtual bool FileInto(Filing filing)
        {
            return false;
        }
    }

    // An element of a class that is not known.
    public sealed class Other : Element
    {
    }

    // What every bar and link has.
    public abstract class Bar : Element
    {
        public string SteelGrade = "", Adherence = "";
        public double Diameter;
        public int Reference;
        public bool Hidden;
    }

    public sealed class Line : Element
    {
        public Point Point1, Point2;
        public uint Color;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class Circle : Element
    {
        public Point Center;
        public double Radius;
        public uint Color;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class Text : Element
    {
        public string Contents = "";
        public Point Location;
        public double Angle, Height;
        public int JustificationX, JustificationY;
        public uint Color;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class FilledPolygon : Element
    {
        [Item("Vector")] public Point[] Points = { };
        public uint Color;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class Mesh : Element
    {
        public string Type = "", Reference = "";
        public double Angle, ExtensionX, ExtensionY;
        [Item("Vector")] public Point[] Points = { };

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    // Two points and one bulge a segment.
    public sealed class Formwork : Element
    {
        [Item("Vector")] public Point[] Points = { };
        public Point[] Bulges = { };

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class StraightBar : Bar
    {
        public Point Point1, Point2;
        public double HookLength1, HookLength2, HookAngle1, HookAngle2;
        public bool Hook1Up, Hook2Up;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class LBar : Bar
    {
        public Point Point1, Point2, Point3;
        public double HookLength1, HookAngle1, HookLength2, HookAngle2;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class UBar : Bar
    {
        public Point Point1, Point2, Point3;
        public double HookLength1, HookAngle1, HookLength2, HookAngle2;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class Pin : Bar
    {
        public Point Point1, Point2;
        public double HookLength1, HookLength2, HookAngle1, HookAngle2;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class PointBar : Bar
    {
        public Point Point1;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class PolygonBar : Bar
    {
        [Item("NoPoints")] public Point[] Points = { };
        public double HookLength1, HookLength2, HookAngle1, HookAngle2;
        public bool Side;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class FrameRect : Bar
    {
        public Point Point1, Point2, Point3;
        public double HookLength1, HookAngle1;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class FrameCirc : Bar
    {
        public Point Center, StartPoint;
        public double FrameRadius, RecoverLength, HookLength1, HookAngle1;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class Stirrup : Bar
    {
        public Point Point1, Point2;
        public double HookLength1, HookAngle1;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }

    public sealed class Repartition : Element
    {
        public Point Point1, Point2, Bulge, Axis;
        public int ViewPoint;
        public double[] AxisDistancesTop = { }, AxisDistancesBottom = { }, Positions = { };
        public string DefClassName = "";
        [Item("Index")] public int BarIndex;
        public bool Hidden;
    }

    public sealed class DrawingControl : Element
    {
        public string ZantoVersion = "", DrawingName = "";
        public int ServicePack, CheckSum;

        internal override bool FileInto(Filing filing)
        {
            filing.Add(this);
            return true;
        }
    }
}
