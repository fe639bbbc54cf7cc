# Shows a photo through the automation object of qmxexif.dll, by late binding: its texts, the first
# rows of the labelled list, and its small preview in a file.
#
#     powershell -ExecutionPolicy Bypass -File show.ps1 PHOTO PREVIEW
#
# Run register-for-me.cmd of the portable archive first, and use a 64-bit PowerShell.  Records and
# callbacks travel as addresses: a script has those of memory that it allocates itself.
param(
    [Parameter(Mandatory = $true)] [string] $Photo,
    [Parameter(Mandatory = $true)] [string] $Preview
)
$ErrorActionPreference = 'Stop'
[Console]::OutputEncoding = New-Object System.Text.UTF8Encoding $false

Add-Type -TypeDefinition @'
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Runtime.InteropServices.ComTypes;

// What PowerShell cannot write down itself: a callback with an address, and streams of Windows.
public static class ExifHelper
{
    public delegate IntPtr EnumCallback(uint kind, IntPtr label, IntPtr value, IntPtr user);

    [DllImport("ole32.dll", PreserveSig = false)]
    public static extern void CreateStreamOnHGlobal(IntPtr memory, bool freeIt, out IStream stream);

    public static readonly List<string> Rows = new List<string>();
    static readonly EnumCallback Collect = (kind, label, value, user) =>
    {
        string name = Marshal.PtrToStringUni(label);
        string text = value == IntPtr.Zero ? "" : ": " + Marshal.PtrToStringUni(value);
        Rows.Add(kind == 1 ? "[" + name + "]" : name + text);
        return IntPtr.Zero;
    };
    public static readonly long CollectAddress =
        Marshal.GetFunctionPointerForDelegate(Collect).ToInt64();

    public static IStream NewStream()
    {
        IStream stream;
        CreateStreamOnHGlobal(IntPtr.Zero, true, out stream);
        return stream;
    }

    public static byte[] Contents(object source)
    {
        var stream = (IStream)source;
        System.Runtime.InteropServices.ComTypes.STATSTG facts;
        stream.Stat(out facts, 1);
        var bytes = new byte[facts.cbSize];
        stream.Read(bytes, bytes.Length, IntPtr.Zero);
        return bytes;
    }
}
'@

$marshal = [System.Runtime.InteropServices.Marshal]
$photoPath = (Resolve-Path -LiteralPath $Photo).ProviderPath
$parser = [Activator]::CreateInstance(
    [Type]::GetTypeFromCLSID('0CFE4406-7B6F-4F69-9751-5968FFC13236'))

# The record InfoRequest, 408 bytes, and behind it its two texts: 1024 and 257 characters.
$recordLength = 408
$longOffset = $recordLength
$shortOffset = $longOffset + 2 * 1024
$block = $marshal::AllocHGlobal($shortOffset + 2 * 257)
try {
    $marshal::Copy((New-Object byte[] ($shortOffset + 2 * 257)), 0, $block, $shortOffset + 2 * 257)
    $marshal::WriteInt64($block, 120, $block.ToInt64() + $longOffset)
    $marshal::WriteInt32($block, 128, 1024)
    $marshal::WriteInt64($block, 132, $block.ToInt64() + $shortOffset)
    $marshal::WriteInt32($block, 140, 256)

    # Flag 0 asks for the small preview.  A failure raises an error.
    $stream = [ExifHelper]::NewStream()
    $orientation = 1
    $parser.ExifGetExifInfoEx($photoPath, $stream, [ref] $orientation, 0, $block.ToInt64())

    $marshal::PtrToStringUni([IntPtr] ($block.ToInt64() + $shortOffset))
    ''
    $marshal::PtrToStringUni([IntPtr] ($block.ToInt64() + $longOffset))
    ''
    $parser.ExifEnumInfo($photoPath, [ExifHelper]::CollectAddress, 0)
    [ExifHelper]::Rows | Select-Object -First 6

    $bytes = [ExifHelper]::Contents($stream)
    [System.IO.File]::WriteAllBytes(
        $ExecutionContext.SessionState.Path.GetUnresolvedProviderPathFromPSPath($Preview), $bytes)
    ''
    'preview: {0} bytes, orientation {1}' -f $bytes.Length, $marshal::ReadInt32($block, 144)
}
finally {
    $marshal::FreeHGlobal($block)
}
