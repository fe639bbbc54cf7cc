' Asks the automation object of qmxexif.dll about photos, by late binding.
'
'     cscript //nologo show.vbs PHOTO...
'
' Run register-for-me.cmd of the portable archive first.  A method that fails raises an error.
'
' A script can ask which files are photos and whether they have metadata, a preview or a date; the
' texts themselves do not come back, since a script hands over a copy of its variable.  show.ps1
' gets them, by passing memory of its own.
Option Explicit

Const ExifParser = "new:{0CFE4406-7B6F-4F69-9751-5968FFC13236}"
Const TextLength = 1282 ' what a text that a method fills must hold

Dim parser, failures, index
If WScript.Arguments.Count = 0 Then
    WScript.Echo "usage: cscript //nologo show.vbs PHOTO..."
    WScript.Quit 2
End If
Set parser = GetObject(ExifParser)
failures = 0
For index = 0 To WScript.Arguments.Count - 1
    ShowPhoto WScript.Arguments(index)
Next
' An uncaught error would end the script with success.
If failures > 0 Then WScript.Quit 1
WScript.Quit 0

Sub ShowPhoto(path)
    WScript.Echo Mid(path, InStrRev(Replace(path, "/", "\"), "\") + 1)
    WScript.Echo "  camera file: " & YesNo(IsCameraFile(path))
    WScript.Echo "  metadata: " & YesNo(HasMetadata(path))
    WScript.Echo "  preview: " & Preview(path)
    If Not HasMetadata(path) Then failures = failures + 1
End Sub

' The file is of a kind that the library reads.
Function IsCameraFile(path)
    On Error Resume Next
    parser.ExifIsExifFile path
    IsCameraFile = (Err.Number = 0)
    On Error GoTo 0
End Function

' The texts are composed into a copy of this variable; only success or failure comes back.
Function HasMetadata(path)
    Dim text
    text = Space(TextLength)
    On Error Resume Next
    parser.ExifGetInfoTip path, text, TextLength
    HasMetadata = (Err.Number = 0)
    On Error GoTo 0
End Function

' Any object that is an IStream will do as the target; scripts have ADO's.  Orientation and stream
' are objects of the caller, the last two arguments say: no text.
Function Preview(path)
    Dim stream, orientation
    On Error Resume Next
    Set stream = CreateObject("ADODB.Stream")
    stream.Type = 1 ' binary
    stream.Open
    If Err.Number <> 0 Then
        Preview = "no stream object on this system"
        Exit Function
    End If
    orientation = CLng(1)
    parser.ExifGetThumbnailImage path, stream, orientation, 0, "", 0
    If Err.Number <> 0 Then
        Preview = "none (error " & Hex(Err.Number) & ")"
    Else
        Preview = stream.Size & " bytes, orientation " & orientation
    End If
    On Error GoTo 0
End Function

Function YesNo(value)
    If value Then YesNo = "yes" Else YesNo = "no"
End Function
