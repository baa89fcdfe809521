// A host in C# that writes a small drawing: the elevation of a beam with its bottom bar and its
// links.
//
//   WriteDrawing FILE [LINKS]
//
// Lengths are in millimetres. Whatever goes wrong is told, and what can be saved is saved.

using System;
using Quorvan;

internal static class WriteDrawing
{
    private static void FileElements(Filing filing, int links)
    {
        var corners = new[] { new Point(0, 0, 0), new Point(5000, 0, 0), new Point(5000, 500, 0),
                              new Point(0, 500, 0) };
        var outline = new Formwork { Points = new Point[8] };
        for (int side = 0; side < 4; ++side)
        {
            outline.Points[2 * side] = corners[side];
            outline.Points[2 * side + 1] = corners[(side + 1) % 4];
        }
        var link = new FrameRect
        {
            Point1 = new Point(200, 30, 0), Point2 = new Point(200, 470, 0),
            Point3 = new Point(200, 470, 240), HookLength1 = 80, HookAngle1 = 135,
            SteelGrade = "B500B", Adherence = "HA", Reference = 2, Diameter = 8
        };

        filing.Add(outline);
        filing.Add(new Text
        {
            Contents = "Poutre B12 \u2013 1 \u00f8 20", Location = new Point(0, 600, 0), Color = 7,
            Height = 100
        });
        filing.Add(new StraightBar
        {
            Point1 = new Point(30, 40, 0), Point2 = new Point(4970, 40, 0), HookLength1 = 150,
            HookLength2 = 150, Hook1Up = true, Hook2Up = true, HookAngle1 = 90, HookAngle2 = 90,
            SteelGrade = "B500B", Adherence = "HA", Reference = 1, Diameter = 20
        });
        filing.Add(link);
        for (int i = 0; i < links; ++i)
        {
            double x = 200 + 200 * i;
            filing.AddSeriesFrame(new Point(x, 30, 0), new Point(x, 470, 0), "CKtZantoFrameRect", 80, 135,
                                  link, 1, 1);
        }
    }

    private static void End(Filing filing)
    {
        filing.End("B12", "2025", 1, 42);
    }

    private static void Write(string path, int links)
    {
        using (var filing = new Filing(path))
        {
            FileElements(filing, links);
            try
            {
                End(filing);
            }
            catch (QuorvanException error)
            {
                if (error.Number == QuorvanException.BadSeries)
                {
                    filing.LeaveOutTheRest();
                    End(filing);
                }
                throw;
            }
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
