// An IStream over memory that does without the runtime's COM support, and so works on every
// runtime and system alike.  On Windows an object that implements
// System.Runtime.InteropServices.ComTypes.IStream may be passed instead.
using System;
using System.IO;
using System.Runtime.InteropServices;

namespace Qmxexif
{
    /// <summary>A COM object is a pointer to a table of functions, each of which takes the object
    /// first.  The library calls Write, Seek and SetSize and keeps no reference; the other methods
    /// decline.</summary>
    internal sealed class PreviewStream : IDisposable
    {
        const int Ok = 0;
        const int NotImplemented = unchecked((int)0x80004001);
        const int NoInterface = unchecked((int)0x80004002);
        const int OutOfMemory = unchecked((int)0x8007000E);
        const int InvalidFunction = unchecked((int)0x80030001);

        [UnmanagedFunctionPointer(CallingConvention.StdCall)]
        delegate int Query(IntPtr self, IntPtr id, IntPtr found);
        [UnmanagedFunctionPointer(CallingConvention.StdCall)]
        delegate uint Count(IntPtr self);
        [UnmanagedFunctionPointer(CallingConvention.StdCall)]
        delegate int Transfer(IntPtr self, IntPtr bytes, uint length, IntPtr done);
        [UnmanagedFunctionPointer(CallingConvention.StdCall)]
        delegate int Move(IntPtr self, long move, uint origin, IntPtr moved);
        [UnmanagedFunctionPointer(CallingConvention.StdCall)]
        delegate int Resize(IntPtr self, ulong size);
        [UnmanagedFunctionPointer(CallingConvention.StdCall)]
        delegate int Other(IntPtr self);

        readonly MemoryStream memory = new MemoryStream();
        readonly Delegate[] methods; // what nothing refers to would be collected
        IntPtr block;                // the object, one pointer, and behind it its table

        public PreviewStream()
        {
            // On x64 the caller removes the arguments: a method that declines need not name them.
            Other decline = self => NotImplemented;
            methods = new Delegate[]
            {
                new Query(RefuseInterface), new Count(self => 1), new Count(self => 1),
                decline /* Read */, new Transfer(Write), new Move(Seek), new Resize(SetSize),
                decline /* CopyTo */, new Other(self => Ok) /* Commit */, decline /* Revert */,
                decline /* LockRegion */, decline /* UnlockRegion */, decline /* Stat */,
                decline /* Clone */
            };
            block = Marshal.AllocHGlobal(IntPtr.Size * (1 + methods.Length));
            Marshal.WriteIntPtr(block, block + IntPtr.Size);
            for (int i = 0; i < methods.Length; ++i)
                Marshal.WriteIntPtr(block, IntPtr.Size * (1 + i),
                                    Marshal.GetFunctionPointerForDelegate(methods[i]));
        }

        public IntPtr Pointer { get { return block; } }

        public byte[] ToArray() { return memory.ToArray(); }

        public void Dispose()
        {
            Marshal.FreeHGlobal(block);
            block = IntPtr.Zero;
            GC.KeepAlive(methods);
        }

        static int RefuseInterface(IntPtr self, IntPtr id, IntPtr found)
        {
            if (found != IntPtr.Zero) Marshal.WriteIntPtr(found, IntPtr.Zero);
            return NoInterface;
        }

        // No exception may pass through the library: each becomes a result.
        int Write(IntPtr self, IntPtr bytes, uint length, IntPtr done)
        {
            try
            {
                var copy = new byte[length];
                Marshal.Copy(bytes, copy, 0, copy.Length);
                memory.Write(copy, 0, copy.Length);
                if (done != IntPtr.Zero) Marshal.WriteInt32(done, copy.Length);
                return Ok;
            }
            catch (Exception)
            {
                return OutOfMemory;
            }
        }

        int Seek(IntPtr self, long move, uint origin, IntPtr moved)
        {
            try
            {
                long position = memory.Seek(move, (SeekOrigin)origin); // the same numbers
                if (moved != IntPtr.Zero) Marshal.WriteInt64(moved, position);
                return Ok;
            }
            catch (Exception)
            {
                return InvalidFunction;
            }
        }

        int SetSize(IntPtr self, ulong size)
        {
            try
            {
                long position = memory.Position;
                memory.SetLength(checked((long)size));
                memory.Position = position;
                return Ok;
            }
            catch (Exception)
            {
                return OutOfMemory;
            }
        }
    }
}
