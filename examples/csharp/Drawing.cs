// Reading a drawing.

using System;
using System.Collections;
using System.Collections.Generic;
using System.Linq;

namespace Quorvan
{
    // The elements of a drawing, in the order of the file.
    public sealed class Drawing : IEnumerable<Element>
    {
        private readonly List<Element> elements = new List<Element>();

        private Drawing()
        {
        }

        public int Count
        {
            get { return elements.Count; }
        }

        // All bars and links.
        public IEnumerable<Bar> Bars
        {
            get { return elements.OfType<Bar>(); }
        }

        // The series of like bars.
        public IEnumerable<Repartition> Series
        {
            get { return elements.OfType<Repartition>(); }
        }

        // The last drawing control record; null without one.
        public DrawingControl Control
        {
            get { return elements.OfType<DrawingControl>().LastOrDefault(); }
        }

        // The drawing in the file, which is never written. Throws QuorvanException.
        public static Drawing Read(string path)
        {
            IntPtr file;
            Library.Check(Library.quorvanOpenFile(path, out file));
            return ReadAll(file);
        }

        // The drawing in the bytes of a file.
        public static Drawing Read(byte[] bytes)
        {
            IntPtr file;
            Library.Check(Library.quorvanOpenMemory(bytes, (UIntPtr)bytes.Length, out file));
            return ReadAll(file);
        }

        // The bar that the series repeats; null where it is not in the drawing.
        public Element BarOf(Repartition series)
        {
            return elements.FirstOrDefault(element => element.ClassName == series.DefClassName &&
                                                      element.Index == series.BarIndex);
        }

        public IEnumerator<Element> GetEnumerator()
        {
            return elements.GetEnumerator();
        }

        IEnumerator IEnumerable.GetEnumerator()
        {
            return GetEnumerator();
        }

        private static Drawing ReadAll(IntPtr file)
        {
            try
            {
                var drawing = new Drawing();
                IntPtr element = IntPtr.Zero;
                int result;
                while ((result = Library.quorvanNextElement(file, null, ref element)) == 0)
                {
                    drawing.elements.Add(ElementReader.Read(element));
                }
                if (result != Library.NoMore)
                {
                    Library.Check(result);
                }
                return drawing;
            }
            finally
            {
                Library.quorvanCloseFile(file);
            }
        }
    }
}
