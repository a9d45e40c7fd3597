'=== variables, folders and names of the system
Dim sh, e, v: Set sh = CreateObject("WScript.Shell")
Echo sh.ExpandEnvironmentStrings("%home%/x %NONE% 100% %EMPTY%.")   '> /home/somebody/x %NONE% 100% .
Echo sh.ExpandEnvironmentStrings("%COMPUTERNAME% %TEMP%")           '> HERE /temporary
Set e = sh.Environment("PROCESS")
Echo e("HOME"), "[" & e("none") & "]", e.Count    '> /home/somebody [] 2
For Each v In sh.Environment: Echo v: Next
'> HOME=/home/somebody
'> EMPTY=
Echo Spelled(sh.SpecialFolders("Desktop")), sh.SpecialFolders("none") & "|"   '> /home/somebody/Desktop |
Echo Spelled(sh.CurrentDirectory)                 '> /data
With CreateObject("WScript.Network")
  Echo .ComputerName, .UserName, .UserDomain      '> HERE somebody HERE
End With
On Error Resume Next
sh.CurrentDirectory = "/none": Failed             '> -2147024894

'=== programs are started only where that is allowed
Dim sh: Set sh = CreateObject("WScript.Shell.1")
On Error Resume Next
sh.Run "true": Failed                             '> 70
sh.Run "true", 0, True: Failed                    '> 70
sh.Exec "true": Failed                            '> 70

'=== values of the system
Dim sh: Set sh = CreateObject("WScript.Shell")
Echo sh.RegRead("HKLM\SYSTEM\CurrentControlSet\Control\TimeZoneInformation\ActiveTimeBias")   '> 0
On Error Resume Next
sh.RegRead "HKLM\Software\None": FailedText
'> -2147024894 Unable to open registry key "HKLM\Software\None" for reading.
sh.RegRead "None\x": FailedText
'> -2147024894 Invalid root in registry key "None\x".
