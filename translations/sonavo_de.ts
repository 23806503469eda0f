<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>%1 KB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CircularProgressView</name>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>of this step</source>
        <comment>follows a percentage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CleanUpSummaryView</name>
    <message>
        <source>Back to List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DuplicateGroupView</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expanded</source>
        <comment>a group of songs</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lossless</source>
        <comment>the kind of a sound file</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FailureList</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files are being moved. Open “%1” again when that is done.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Files are being moved. Open these %Ln items again when that is done.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Only “%1” is being scanned. Use “Add Song” to choose several items together.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Sonavo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <comment>a menu</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message>
        <source>Actions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Playing %1</source>
        <comment>%1 is the name of a song</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>The disk of %1 is not there</source>
        <comment>%1 is a path</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Listen</source>
        <comment>to a song</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the window is moving files and can scan nothing until that is done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message>
        <source>Original</source>
        <comment>a song</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <comment>a song</comment>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
