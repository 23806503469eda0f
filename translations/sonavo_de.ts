<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation>Über Sonavo</translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation>Sonavo %1</translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation>Findet Titel, die in einem Musikordner mehrfach vorhanden sind. Alles geschieht auf diesem Rechner, und nichts wird je endgültig gelöscht.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation>Schritt 1/4: Gleiche Titel werden gruppiert …</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation>Schritt 2/4: Ähnliche Dateinamen werden gesucht …</translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation>Schritt 3/4: Interpreten und Titel werden verglichen …</translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation>Schritt 4/4: Übrige Titel werden gründlich verglichen …</translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Ordner hier ablegen, um nach doppelten Titeln zu suchen</translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>%Ln doppelte Datei • %1 • Vor dem Löschen mit dem Lautsprecher prüfen</numerusform>
            <numerusform>%Ln doppelte Dateien • %1 • Vor dem Löschen mit dem Lautsprecher prüfen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>%Ln doppelte Datei gefunden • Vor dem Löschen mit dem Lautsprechersymbol prüfen</numerusform>
            <numerusform>%Ln doppelte Dateien gefunden • Vor dem Löschen mit dem Lautsprechersymbol prüfen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>%1 KB</source>
        <translation>%1&#xa0;kB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1&#xa0;MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1&#xa0;GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1&#xa0;TB</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1&#xa0;PB</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1&#xa0;EB</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0&#xa0;kB</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>1 Byte</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%n Byte</numerusform>
            <numerusform>%n Bytes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CircularProgressView</name>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>of this step</source>
        <comment>follows a percentage</comment>
        <translation>dieses Schritts</translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation>Dateien bleiben unverändert</translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation>Abbrechen und zurück</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln Datei gefunden</numerusform>
            <numerusform>%Ln Dateien gefunden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation>Die Datei existiert nicht mehr</translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation>Die Datei kann nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation>Die Datei wurde seit der Suche geändert</translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation>Die Datei fehlt oder wurde inzwischen geändert</translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation>Das Original der Gruppe existiert nicht mehr</translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation>Das Original der Gruppe kann nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation>Das Original der Gruppe wurde seit der Suche geändert</translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation>Das Original der Gruppe fehlt oder wurde inzwischen geändert</translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation>Die Datei ist nicht erreichbar</translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation>Das Original der Gruppe fehlt oder wurde geändert</translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation>Die Datei wurde geändert, während sie verschoben wurde</translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation>%1; die Datei wurde daher zurückgelegt</translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation>%1. Die Datei liegt jetzt unter %2: %3</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation>%1.</translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation>Sie ist möglicherweise dieselbe Datei wie ein Original, das auch ein anderes Dateisystem zeigt</translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation>Sie bleibt unter %1: %2</translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation>Ein anderer Titel dieser Gruppe ist genau dieselbe Datei und wäre ebenfalls weg.</translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation>Ein anderer Titel dieser Gruppe war ebenfalls weg</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation>%L1 von %L2 wird in den Papierkorb verschoben</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation>%L1 von %L2 wird in den Ordner verschoben</translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation>Ordner für die doppelten Dateien auswählen</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation>Ordner konnte nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation>Ordnerpfad in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation>Datei konnte nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation>In den Papierkorb verschoben: %1</translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation>%L1 von %L2 wird zurückgelegt</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation>Rückgängig gemacht: %1</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation>In den Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation>In Ordner verschieben</translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Wird angehalten …</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>CleanUpSummaryView</name>
    <message>
        <source>Back to List</source>
        <translation>Zurück zur Liste</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation>Keine weiteren Duplikate gefunden</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>%Ln weiteres Duplikat gefunden</numerusform>
            <numerusform>%Ln weitere Duplikate gefunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>%Ln Duplikat (%1) in den Papierkorb verschieben</numerusform>
            <numerusform>%Ln Duplikate (%1) in den Papierkorb verschieben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>%Ln Duplikat (%1) in einen Ordner verschieben</numerusform>
            <numerusform>%Ln Duplikate (%1) in einen Ordner verschieben</numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation>Keine Duplikate zum Verschieben</translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>%Ln Datei in den Papierkorb verschoben</numerusform>
            <numerusform>%Ln Dateien in den Papierkorb verschoben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>%Ln Datei in den Ordner verschoben</numerusform>
            <numerusform>%Ln Dateien in den Ordner verschoben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>%Ln Datei verschoben</numerusform>
            <numerusform>%Ln Dateien verschoben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln fehlgeschlagen</numerusform>
            <numerusform>%Ln fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln nicht verschoben</numerusform>
            <numerusform>%Ln nicht verschoben</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation>%1 eingespart</translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation>Es wurden keine Dateien verschoben</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>%Ln Datei in den Papierkorb verschoben</numerusform>
            <numerusform>%Ln Dateien in den Papierkorb verschoben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>%Ln Datei in einen Ordner verschoben</numerusform>
            <numerusform>%Ln Dateien in einen Ordner verschoben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>%Ln Titel verbleibt</numerusform>
            <numerusform>%Ln Titel verbleiben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>Der neue Datenträger konnte nicht alle Attribute von %Ln Titel speichern: %1</numerusform>
            <numerusform>Der neue Datenträger konnte nicht alle Attribute von %Ln Titeln speichern: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>%Ln Datei zurückgelegt</numerusform>
            <numerusform>%Ln Dateien zurückgelegt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln fehlgeschlagen</numerusform>
            <numerusform>%Ln fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln nicht zurückgelegt</numerusform>
            <numerusform>%Ln nicht zurückgelegt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>%Ln Datei konnte nicht zurückgelegt werden:</numerusform>
            <numerusform>%Ln Dateien konnten nicht zurückgelegt werden:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>und %Ln weitere</numerusform>
            <numerusform>und %Ln weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation>Noch ein paar Sekunden</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>Noch etwa %Ln Sekunde</numerusform>
            <numerusform>Noch etwa %Ln Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>Noch etwa %Ln Minute</numerusform>
            <numerusform>Noch etwa %Ln Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>Noch etwa %Ln Stunde</numerusform>
            <numerusform>Noch etwa %Ln Stunden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: sonavo [--new-window] [PATH...]
       sonavo --report [--further] [--json | --csv] PATH...

Finds the songs that a music folder holds more than once and helps to remove them. Opens
a window, in which the files and folders PATH... are scanned at once. If the window is
open already, it comes to the front and scans them.

  --new-window   open a window although there is one
  --report       print the duplicate songs among PATH... instead, changing nothing
  --further      compare every song with every other, in every script: finds more
  --json         print them as JSON
  --csv          print them as comma-separated values, for spreadsheets
  -h, --help     print this text
  -v, --version  print the version

Exit status: 0 when the window was closed, the open one took over, or a report was
printed, 1 when there was nothing to report, no window could be opened, or the open one
is busy, 2 for unusable arguments, 130 after Ctrl-C during a report.
</source>
        <translation>Aufruf: sonavo [--new-window] [PATH...]
        sonavo --report [--further] [--json | --csv] PATH...

Findet Titel, die in einem Musikordner mehrfach vorhanden sind, und hilft, sie zu entfernen.
Öffnet ein Fenster, in dem die Dateien und Ordner PATH... gleich durchsucht werden. Ist das
Fenster schon offen, kommt es nach vorn und durchsucht sie.

  --new-window   ein Fenster öffnen, obwohl es schon eines gibt
  --report       stattdessen die doppelten Titel in PATH... ausgeben und nichts verändern
  --further      jeden Titel mit jedem anderen vergleichen, in jeder Schrift: findet mehr
  --json         sie als JSON ausgeben
  --csv          sie als kommagetrennte Werte ausgeben, für Tabellen
  -h, --help     diesen Text ausgeben
  -v, --version  die Version ausgeben

Rückgabewert: 0, wenn das Fenster geschlossen wurde, das offene übernommen hat oder ein
Bericht ausgegeben wurde; 1, wenn es nichts zu berichten gab, kein Fenster geöffnet werden
konnte oder das offene gerade beschäftigt ist; 2 bei unbrauchbaren Argumenten; 130 nach
Strg+C während eines Berichts.
</translation>
    </message>
    <message>
        <source>skipped, its name is not valid UTF-8: %1</source>
        <translation>übersprungen, der Name ist kein gültiges UTF-8: %1</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Unbekannte Option „%1“.</translation>
    </message>
    <message>
        <source>--%1 needs --report</source>
        <translation>--%1 geht nur mit --report</translation>
    </message>
    <message>
        <source>--report opens no window</source>
        <translation>--report öffnet kein Fenster</translation>
    </message>
    <message>
        <source>--json and --csv exclude each other</source>
        <translation>--json und --csv schließen einander aus</translation>
    </message>
    <message>
        <source>no such file or folder: %1</source>
        <translation>Datei oder Ordner nicht gefunden: %1</translation>
    </message>
    <message>
        <source>--report needs at least one PATH</source>
        <translation>--report braucht mindestens ein PATH</translation>
    </message>
    <message>
        <source>Try &apos;sonavo --help&apos;.</source>
        <translation>„sonavo --help“ zeigt Hilfe.</translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation>Musikordner hierher ziehen</translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Ordner hier ablegen, um nach doppelten Titeln zu suchen</translation>
    </message>
</context>
<context>
    <name>DuplicateGroupView</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>expanded</source>
        <comment>a group of songs</comment>
        <translation>ausgeklappt</translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation>eingeklappt</translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation>Diese Gruppe aufräumen</translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation>Doppelte Titel</translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation>Keine Gruppe entspricht dem Filter</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>lossless</source>
        <comment>the kind of a sound file</comment>
        <translation>verlustfrei</translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation>%1 (%L2 Bytes)</translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation>Geändert: %1</translation>
    </message>
</context>
<context>
    <name>DuplicateViewModel</name>
    <message>
        <source>No files have been copied</source>
        <translation>Es wurden keine Dateien kopiert</translation>
    </message>
    <message>
        <source>The folder could not be opened</source>
        <translation>Der Ordner konnte nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>FailureList</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation>Anzeigen</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation>Titel hinzufügen</translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation>Titel (*.%1)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <comment>the title of a dialog</comment>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Spreadsheet (*.csv)</source>
        <translation>Tabelle (*.csv)</translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation>Es ist nicht sicher, ob die Datei verschoben wurde (%1). Sie liegt unter %2 oder unter %3.</translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation>Es ist nicht sicher, ob die Datei verschoben wurde (%1). Sie liegt unter %2 oder unter %3; was an ihre Stelle gelegt wurde, liegt unter %4.</translation>
    </message>
    <message>
        <source>The disk cannot store a file of this name</source>
        <translation>Der Datenträger kann keine Datei dieses Namens speichern</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation>Wie gefunden</translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation>Frei werdender Platz</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation>Name</translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation>Namen und Ordner filtern</translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation>Alle Gruppen anzeigen</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>Sortierung: %1</translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation>Zum ersten Ergebnis zurück</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Mehr Duplikate suchen</translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation>Zeigt die Duplikate, die die Suche gefunden hat</translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation>Vergleicht jeden Titel mit jedem anderen, in allen Schriften</translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation>Diese Gruppe aufräumen</translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation>Duplikate in den Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation>Duplikate in Ordner verschieben …</translation>
    </message>
</context>
<context>
    <name>Importer</name>
    <message>
        <source>Cannot import more than %1 songs in a single session.

For large music libraries, we recommend:
• Processing your library in batches by genre or folder
• Using 1000-2000 songs per session for best performance
• Clearing previous results before starting a new batch

This helps ensure accurate duplicate detection and optimal performance.</source>
        <translation>In einer Sitzung können höchstens %L1 Titel importiert werden.

Bei großen Musiksammlungen empfiehlt es sich:
• die Sammlung in Teilen nach Genre oder Ordner zu bearbeiten
• für beste Leistung 1.000–2.000 Titel je Sitzung zu verwenden
• frühere Ergebnisse vor einem neuen Teil zu leeren

So werden Duplikate zuverlässig und schnell erkannt.</translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation>Es können höchstens %L1 Titel importiert werden.
Bitte wählen Sie einen kleineren Ordner.</translation>
    </message>
    <message>
        <source>Sonavo is busy. Open “%1” again when that is done.</source>
        <translation>Sonavo ist gerade beschäftigt. Öffnen Sie „%1“ danach erneut.</translation>
    </message>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo ist gerade beschäftigt. Öffnen Sie dieses %Ln Objekt danach erneut.</numerusform>
            <numerusform>Sonavo ist gerade beschäftigt. Öffnen Sie diese %Ln Objekte danach erneut.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>Die Suche in „%1“ ersetzt diese Liste, die noch %Ln Duplikat enthält.</numerusform>
            <numerusform>Die Suche in „%1“ ersetzt diese Liste, die noch %Ln Duplikate enthält.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>Die Suche in diesen %L1 Objekten ersetzt diese Liste, die noch %Ln Duplikat enthält.</numerusform>
            <numerusform>Die Suche in diesen %L1 Objekten ersetzt diese Liste, die noch %Ln Duplikate enthält.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scan All %L1</source>
        <extracomment>Button; the number of files and folders that were dropped, at least 2</extracomment>
        <translation>Alle %L1 durchsuchen</translation>
    </message>
    <message>
        <source>Of %L1 items that were dropped, only “%2” is scanned</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>Von %L1 abgelegten Objekten wird nur „%2“ durchsucht</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Sonavo</source>
        <translation>Sonavo</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <comment>a menu</comment>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>Zum ersten Ergebnis zurück</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Verlustfreie Kopien behalten</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation>Über Sonavo</translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Titel hinzufügen</translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation>Alle aufräumen</translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation>Duplikate verschieben</translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>%Ln Duplikat</numerusform>
            <numerusform>%Ln Duplikate</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>%Ln insgesamt</numerusform>
            <numerusform>%Ln insgesamt</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Liste leeren</translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation>Perfekt! Keine Duplikate gefunden</translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation>Ihre Musiksammlung ist aufgeräumt und geordnet</translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>%Ln Titel durchsucht</numerusform>
            <numerusform>%Ln Titel durchsucht</numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation>Alle einmalig</translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation>Benachrichtigung</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Playing %1</source>
        <comment>%1 is the name of a song</comment>
        <translation>Wiedergabe: %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Stopp</translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>The disk of %1 is not there</source>
        <comment>%1 is a path</comment>
        <translation>Der Datenträger von %1 ist nicht vorhanden</translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation>Die Datei unter %1 ist nicht die, die dorthin verschoben wurde</translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation>Die Datei liegt weder unter %1 noch unter %2</translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation>Liste ersetzen?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>ReportSaver</name>
    <message>
        <source>Saving the report...</source>
        <translation>Bericht wird gespeichert …</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Bericht gespeichert: %1</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>The report was not saved</source>
        <translation>Der Bericht wurde nicht gespeichert</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>Der Bericht konnte nicht gespeichert werden: %1</translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation>Gruppen werden geändert …</translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation>Kein Original wurde geändert</translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>Original in %Ln Gruppe geändert</numerusform>
            <numerusform>Original in %Ln Gruppen geändert</numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Mehr Duplikate suchen</translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation>Jeder Titel wird mit jedem anderen verglichen …</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>Zum ersten Ergebnis zurück</translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation>Zum ersten Ergebnis zurückgekehrt</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Diesen behalten</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Kopien in diesem Ordner behalten</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Verlustfreie Kopien behalten</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>Kein Duplikat</translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation>Keine Gruppe wurde geändert</translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation>Kein Duplikat: %1</translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation>Suche wird gestartet …</translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation>Schritt 1/4: Audiodateien werden gesucht …</translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation>Im ausgewählten Ordner wurden keine Audiodateien gefunden.</translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>Schritt 1/4: %Ln Audiodatei wird verarbeitet …</numerusform>
            <numerusform>Schritt 1/4: %Ln Audiodateien werden verarbeitet …</numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation>Schritt 1/4: Audiodateien werden verarbeitet (%L1 von %L2)</translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation>Schritt 2/4: Duplikatsuche wird vorbereitet …</translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation>Keine unterstützten Audiodateien gefunden.</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation>Schritt 2/4: Duplikate werden ermittelt …</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Row Above</source>
        <translation>Zeile darüber</translation>
    </message>
    <message>
        <source>Row Below</source>
        <translation>Zeile darunter</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>Erste Zeile</translation>
    </message>
    <message>
        <source>Last Row</source>
        <translation>Letzte Zeile</translation>
    </message>
    <message>
        <source>Hide the Songs of the Group</source>
        <translation>Titel der Gruppe ausblenden</translation>
    </message>
    <message>
        <source>Show the Songs of the Group</source>
        <translation>Titel der Gruppe einblenden</translation>
    </message>
    <message>
        <source>On a Group: Hide or Show Its Songs</source>
        <translation>Auf einer Gruppe: Titel aus- oder einblenden</translation>
    </message>
    <message>
        <source>Listen, or Stop</source>
        <translation>Anhören oder anhalten</translation>
    </message>
    <message>
        <source>Listen from the Same Second</source>
        <translation>Ab derselben Sekunde anhören</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Diesen behalten</translation>
    </message>
    <message>
        <source>Menu of the Song or Group</source>
        <translation>Menü des Titels oder der Gruppe</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Titel hinzufügen</translation>
    </message>
    <message>
        <source>Scan Copied Files</source>
        <translation>Kopierte Dateien durchsuchen</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>Bericht speichern …</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>Filter Names and Folders</source>
        <translation>Namen und Ordner filtern</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Mehr Duplikate suchen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Open the Menu</source>
        <translation>Menü öffnen</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation>Hauptfenster anzeigen</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>Nächstes Bedienelement</translation>
    </message>
    <message>
        <source>Close What Lies on Top, or Stop a Clean-Up</source>
        <translation>Oberstes schließen oder Aufräumen anhalten</translation>
    </message>
</context>
<context>
    <name>ShortcutsSheet</name>
    <message>
        <source>In the List of Results</source>
        <translation>In der Ergebnisliste</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>Überall</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation>Große Sammlung erkannt</translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation>Sehr viele Titel hinzuzufügen kann die Leistung beeinträchtigen.</translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation>Empfehlungen zur Leistung:</translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation>Beste Leistung: bis zu 5.000 Titel</translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation>Gute Leistung: 5.000–10.000 Titel</translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation>Höchstens je Sitzung: 500.000 Titel</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation>Trotzdem hinzufügen</translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Listen</source>
        <comment>to a song</comment>
        <translation>Anhören</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Kopien in diesem Ordner behalten</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Verlustfreie Kopien behalten</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>Kein Duplikat</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation>Wiedergabe anhalten</translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation>Klicken, um diesen Titel anzuhören und zu prüfen</translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation>Diesen Titel löschen</translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation>Verschiebt %1 in den Papierkorb</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation>auf dieser Anzeige kann kein Fenster geöffnet werden; --report braucht keines</translation>
    </message>
    <message>
        <source>the window is busy and can scan nothing until that is done</source>
        <translation>das Fenster ist gerade beschäftigt und kann erst danach suchen</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation>keine Anzeige für ein Fenster vorhanden; --report braucht keine</translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation>Dateityp</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation>999,99&#xa0;GB</translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation>ORIGINAL</translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation>DUPLIKAT</translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation>Dateiname</translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation>Der Papierkorb dieses Datenträgers ist nicht nutzbar: %1</translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation>Er liegt auf einem anderen Dateisystem</translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation>Keine Datei</translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation>Rückgängig: %1</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation>Willkommen bei Sonavo</translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation>Doppelte Titel in Ihrer Musiksammlung finden und entfernen</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Durchsuchen</translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation>Zum hellen Design wechseln</translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation>Zum dunklen Design wechseln</translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>%Ln Datei konnte nicht verschoben werden</numerusform>
            <numerusform>%Ln Dateien konnten nicht verschoben werden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message>
        <source>Original</source>
        <comment>a song</comment>
        <translation>Original</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <comment>a song</comment>
        <translation>Duplikat</translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>Gruppe mit %Ln Titel</numerusform>
            <numerusform>Gruppe mit %Ln Titeln</numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation>Gibt %1 frei</translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation>Nur durch den Vergleich aller Titel miteinander gefunden. Hören Sie ihn an, bevor Sie ihn löschen.</translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>Filter verbirgt %Ln Duplikat</numerusform>
            <numerusform>Filter verbirgt %Ln Duplikate</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation>Keine Duplikate gefunden</translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>%Ln doppelte Datei gefunden</numerusform>
            <numerusform>%Ln doppelte Dateien gefunden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation>Anzeigen</translation>
    </message>
</context>
</TS>
