// Shows a photo: its texts, the first rows of the labelled list, and its small preview in a file.
//
//     show PHOTO PREVIEW
using System;
using System.IO;
using System.Linq;
using System.Text;
using Qmxexif;

static class Program
{
    static int Main(string[] arguments)
    {
        if (arguments.Length != 2)
        {
            Console.Error.WriteLine("usage: show PHOTO PREVIEW");
            return 2;
        }
        Photo photo = Photo.Read(arguments[0]);
        if (photo == null)
        {
            Console.Error.WriteLine("no metadata");
            return 1;
        }
        var output = new StreamWriter(Console.OpenStandardOutput(), new UTF8Encoding(false));
        output.NewLine = "\n";
        output.WriteLine(photo.ShortText + "\n\n" + photo.LongText + "\n");
        foreach (Row row in Photo.ReadList(arguments[0]).Take(6))
        {
            if (row.IsHeading) output.WriteLine("[" + row.Label + "]");
            else output.WriteLine(row.Value == null ? row.Label : row.Label + ": " + row.Value);
        }
        if (photo.Preview != null)
        {
            File.WriteAllBytes(arguments[1], photo.Preview);
            output.WriteLine("\npreview: {0} bytes, orientation {1}", photo.Preview.Length,
                             photo.Info.Orientation);
        }
        output.Flush();
        return 0;
    }
}
