// qmxexif.dll for .NET: the record and the exported functions by P/Invoke, a stream in memory, and
// on top of them one call that gives what an image browser wants.
//
// Compiles with C# 5 and later, .NET Framework, .NET and Mono; the process must be 64-bit.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace Qmxexif
{
    /// <summary>What ExifGetExifInfoEx fills: 408 bytes, packed to 4.</summary>
    [StructLayout(LayoutKind.Sequential, Pack = 4, CharSet = CharSet.Unicode)]
    public struct InfoRequest
    {
        /// <summary>An integer that the file does not give.</summary>
        public const int IntUnset = 0x7FFFFFFF;

        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 32)]
        public string ModelText;
        /// <summary>Year, month, 0, day, hour, minute, second, 0: a SYSTEMTIME.</summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 8)]
        public ushort[] CaptureTime;
        public int ImageWidth;
        public int ImageHeight;
        public int ExposureProgram;
        public float FocalLength;
        public float FocalLength35mm;
        public float ExposureTime;
        public float ExposureBias;
        public float FNumber;
        public int IsoSpeed;
        public uint FlashFired;
        /// <summary>Buffers that the caller provides, or IntPtr.Zero.</summary>
        public IntPtr LongText;
        public int LongTextCapacity;
        public IntPtr ShortText;
        public int ShortTextCapacity;
        public uint Orientation;
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)]
        public byte[] Reserved;
        public int MeteringMode;
        public int WhiteBalance;
        public float MaxAperture;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 32)]
        public string MakeText;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 64)]
        public string LensText;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 20)]
        public string WhiteBalanceText;
    }

    /// <summary>Receives one row of the list.  Texts live only during the call.</summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall)]
    public delegate IntPtr EnumCallback(uint kind, IntPtr label, IntPtr value, IntPtr user);

    /// <summary>The exported functions that are used here; see qmxexif.h for all of them.</summary>
    internal static class Native
    {
        const string Library = "qmxexif.dll";

        [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern uint ExifGetExifInfoEx(string path, IntPtr stream, IntPtr orientation,
                                                      uint flag, ref InfoRequest request);

        [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern uint ExifEnumInfo(string path, EnumCallback callback, IntPtr user);
    }

    /// <summary>One row of the labelled list.</summary>
    public sealed class Row
    {
        public bool IsHeading;
        public string Label;
        public string Value; // null in headings and in items that introduce others
    }

    /// <summary>A photo as the library reads it.</summary>
    public sealed class Photo
    {
        const int LongCapacity = 1024;
        const int ShortCapacity = 256;

        public InfoRequest Info;
        public string LongText;
        public string ShortText;
        public byte[] Preview; // null when the file has none

        /// <summary>Reads metadata, texts and preview; null when there is no metadata.</summary>
        public static Photo Read(string path, bool largest = false)
        {
            using (var stream = new PreviewStream())
                return Read(path, stream, largest) ?? Read(path, null, largest);
        }

        /// <summary>Reads every decoded value; empty when there is no metadata.</summary>
        public static List<Row> ReadList(string path)
        {
            var rows = new List<Row>();
            EnumCallback collect = (kind, label, value, user) =>
            {
                rows.Add(new Row
                {
                    IsHeading = kind == 1,
                    Label = Marshal.PtrToStringUni(label),
                    Value = value == IntPtr.Zero ? null : Marshal.PtrToStringUni(value)
                });
                return IntPtr.Zero;
            };
            Native.ExifEnumInfo(path, collect, IntPtr.Zero);
            GC.KeepAlive(collect); // not before the library is done with it
            return rows;
        }

        static Photo Read(string path, PreviewStream stream, bool largest)
        {
            // The short text may be one character longer than the capacity that is stated.
            IntPtr texts = Marshal.AllocHGlobal(2 * (LongCapacity + ShortCapacity + 1));
            try
            {
                Marshal.WriteInt16(texts, 0, 0);
                Marshal.WriteInt16(texts, 2 * LongCapacity, 0);
                var photo = new Photo();
                photo.Info.LongText = texts;
                photo.Info.LongTextCapacity = LongCapacity;
                photo.Info.ShortText = texts + 2 * LongCapacity;
                photo.Info.ShortTextCapacity = ShortCapacity;
                IntPtr target = stream == null ? IntPtr.Zero : stream.Pointer;
                if (Native.ExifGetExifInfoEx(path, target, IntPtr.Zero, largest ? 1u : 0u,
                                             ref photo.Info) == 0)
                    return null;
                photo.LongText = Marshal.PtrToStringUni(photo.Info.LongText);
                photo.ShortText = Marshal.PtrToStringUni(photo.Info.ShortText);
                photo.Info.LongText = photo.Info.ShortText = IntPtr.Zero;
                photo.Preview = stream == null ? null : stream.ToArray();
                return photo;
            }
            finally
            {
                Marshal.FreeHGlobal(texts);
            }
        }
    }
}
