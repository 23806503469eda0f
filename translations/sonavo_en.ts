<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>BottomInfoBar</name>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</numerusform>
            <numerusform>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>Found %n duplicate files • Use speaker icon to verify before deleting</numerusform>
            <numerusform>Found %n duplicate files • Use speaker icon to verify before deleting</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%n bytes</numerusform>
            <numerusform>%n bytes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CircularProgressView</name>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln file found</numerusform>
            <numerusform>%Ln files found</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>%Ln more duplicate found</numerusform>
            <numerusform>%Ln more duplicates found</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>Move %Ln duplicate (%1) to the Trash</numerusform>
            <numerusform>Move %Ln duplicates (%1) to the Trash</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>Move %Ln duplicate (%1) to a folder</numerusform>
            <numerusform>Move %Ln duplicates (%1) to a folder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>Moved %n files to Trash</numerusform>
            <numerusform>Moved %n files to Trash</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>Moved %n files to folder</numerusform>
            <numerusform>Moved %n files to folder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>Moved %n files</numerusform>
            <numerusform>Moved %n files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%n failed</numerusform>
            <numerusform>%n failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>%n not moved</numerusform>
            <numerusform>%n not moved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>%Ln file moved to the Trash</numerusform>
            <numerusform>%Ln files moved to the Trash</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>%Ln file moved to a folder</numerusform>
            <numerusform>%Ln files moved to a folder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>%Ln song remains</numerusform>
            <numerusform>%Ln songs remain</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>The new disk could not store all attributes of %Ln song: %1</numerusform>
            <numerusform>The new disk could not store all attributes of %Ln songs: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>%Ln file put back</numerusform>
            <numerusform>%Ln files put back</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln failed</numerusform>
            <numerusform>%Ln failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln not put back</numerusform>
            <numerusform>%Ln not put back</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>%Ln file could not be put back:</numerusform>
            <numerusform>%Ln files could not be put back:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>and %Ln more</numerusform>
            <numerusform>and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>About %Ln second left</numerusform>
            <numerusform>About %Ln seconds left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>About %Ln minute left</numerusform>
            <numerusform>About %Ln minutes left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>About %Ln hour left</numerusform>
            <numerusform>About %Ln hours left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Importer</name>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo is busy. Open these %Ln items again when that is done.</numerusform>
            <numerusform>Sonavo is busy. Open these %Ln items again when that is done.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>Scanning “%1” replaces this list, which still has %Ln duplicate.</numerusform>
            <numerusform>Scanning “%1” replaces this list, which still has %Ln duplicates.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>Scanning these %L1 items replaces this list, which still has %Ln duplicate.</numerusform>
            <numerusform>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>%n duplicate</numerusform>
            <numerusform>%n duplicates</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>%n total</numerusform>
            <numerusform>%n total</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>%n songs scanned</numerusform>
            <numerusform>%n songs scanned</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>Changed the original in %Ln group</numerusform>
            <numerusform>Changed the original in %Ln groups</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>Step 1/4: Processing %n audio files...</numerusform>
            <numerusform>Step 1/4: Processing %n audio files...</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>%Ln file could not be moved</numerusform>
            <numerusform>%Ln files could not be moved</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>Group of %n songs</numerusform>
            <numerusform>Group of %n songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>Filter hides %Ln duplicate</numerusform>
            <numerusform>Filter hides %Ln duplicates</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>Found %Ln duplicate file</numerusform>
            <numerusform>Found %Ln duplicate files</numerusform>
        </translation>
    </message>
</context>
</TS>
