<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation>关于 Sonavo</translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation>Sonavo %1</translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation>查找音乐文件夹中重复的歌曲。一切都在这台计算机上进行，任何内容都不会被彻底删除。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation>第 1/4 步：按相同标题分组…</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation>第 2/4 步：分析相似的文件名…</translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation>第 3/4 步：比较艺人和标题…</translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation>第 4/4 步：深入比较其余歌曲…</translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>拖放文件夹以扫描重复的歌曲</translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>找到 %Ln 个重复文件 • %1 • 删除前请用扬声器图标试听确认</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>找到 %Ln 个重复文件 • 删除前请用扬声器图标试听确认</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>%1 KB</source>
        <translation>%1&#xa0;KB</translation>
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
        <translation>0&#xa0;KB</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>1 字节</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%n 字节</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CircularProgressView</name>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1%</translation>
    </message>
    <message>
        <source>of this step</source>
        <comment>follows a percentage</comment>
        <translation>本步骤进度</translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation>您的文件保持不变</translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation>取消并返回</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>找到 %Ln 个文件</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation>文件已不存在</translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation>无法读取文件（%1）</translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation>文件在扫描后已被更改</translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation>文件已消失或在此期间被更改</translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation>所在组的原件已不存在</translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation>无法读取所在组的原件（%1）</translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation>所在组的原件在扫描后已被更改</translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation>所在组的原件已消失或在此期间被更改</translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation>无法访问文件</translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation>所在组的原件已消失或被更改</translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation>文件在移动时被更改</translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation>%1，因此文件已放回原处</translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation>%1。文件现在位于 %2：%3</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation>%1。</translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation>它可能与某个原件是同一个文件，只是另一个文件系统也显示了它</translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation>它仍在 %1：%2</translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation>此组中的另一首歌曲是同一个文件，也会随之消失。</translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation>此组中的另一首歌曲也随之消失了</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation>正在移到回收站：%L1/%L2</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation>正在移到文件夹：%L1/%L2</translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation>选择用于存放重复文件的文件夹</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation>无法创建文件夹：%1</translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation>文件夹路径已复制到剪贴板</translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation>无法删除文件：%1</translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation>已移到回收站：%1</translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation>正在放回：%L1/%L2</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation>已撤销：%1</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation>移到回收站</translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation>移到文件夹</translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>正在停止…</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>停止</translation>
    </message>
</context>
<context>
    <name>CleanUpSummaryView</name>
    <message>
        <source>Back to List</source>
        <translation>返回列表</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation>没有找到更多重复项</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>又找到 %Ln 个重复项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>将 %Ln 个重复项（%1）移到回收站</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>将 %Ln 个重复项（%1）移到文件夹</numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation>没有可移动的重复项</translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>已将 %Ln 个文件移到回收站</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>已将 %Ln 个文件移到文件夹</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>已移动 %Ln 个文件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 个失败</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 个未移动</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation>节省 %1</translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation>没有移动任何文件</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>%Ln 个文件已移到回收站</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>%Ln 个文件已移到文件夹</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>剩余 %Ln 首歌曲</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>新磁盘无法保存 %Ln 首歌曲的全部属性：%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>已放回 %Ln 个文件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 个失败</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 个未放回</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>有 %Ln 个文件无法放回：</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>以及另外 %Ln 个</numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation>剩余几秒</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>剩余约 %Ln 秒</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>剩余约 %Ln 分钟</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>剩余约 %Ln 小时</numerusform>
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
        <translation>用法: sonavo [--new-window] [PATH...]
      sonavo --report [--further] [--json | --csv] PATH...

查找音乐文件夹中重复的歌曲，并帮助移除它们。打开一个窗口，立即扫描文件和
文件夹 PATH...。如果窗口已经打开，它会来到前台并进行扫描。

  --new-window   即使已有窗口也打开新窗口
  --report       改为输出 PATH... 中重复的歌曲，不做任何更改
  --further      不论文字，将每首歌曲与其他所有歌曲比较：能找到更多
  --json         以 JSON 格式输出
  --csv          以逗号分隔的值输出，用于电子表格
  -h, --help     输出本文
  -v, --version  输出版本

退出状态：窗口已关闭、已打开的窗口已接手或已输出报告时为 0；没有可报告的内容、
无法打开窗口或已打开的窗口正忙时为 1；参数无法使用时为 2；在报告期间
按下 Ctrl+C 后为 130。
</translation>
    </message>
    <message>
        <source>skipped, its name is not valid UTF-8: %1</source>
        <translation>已跳过，其名称不是有效的 UTF-8：%1</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>未知选项“%1”。</translation>
    </message>
    <message>
        <source>--%1 needs --report</source>
        <translation>--%1 需要 --report</translation>
    </message>
    <message>
        <source>--report opens no window</source>
        <translation>--report 不打开窗口</translation>
    </message>
    <message>
        <source>--json and --csv exclude each other</source>
        <translation>--json 和 --csv 不能同时使用</translation>
    </message>
    <message>
        <source>no such file or folder: %1</source>
        <translation>没有此文件或文件夹：%1</translation>
    </message>
    <message>
        <source>--report needs at least one PATH</source>
        <translation>--report 至少需要一个 PATH</translation>
    </message>
    <message>
        <source>Try &apos;sonavo --help&apos;.</source>
        <translation>请尝试“sonavo --help”。</translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation>将音乐文件夹拖放到此处</translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>拖放文件夹以扫描重复的歌曲</translation>
    </message>
</context>
<context>
    <name>DuplicateGroupView</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>，</translation>
    </message>
    <message>
        <source>expanded</source>
        <comment>a group of songs</comment>
        <translation>已展开</translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation>已折叠</translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation>清理此组</translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation>重复的歌曲</translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation>没有符合筛选条件的组</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>，</translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>lossless</source>
        <comment>the kind of a sound file</comment>
        <translation>无损</translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation>%1（%L2 字节）</translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation>修改时间：%1</translation>
    </message>
</context>
<context>
    <name>DuplicateViewModel</name>
    <message>
        <source>No files have been copied</source>
        <translation>没有复制任何文件</translation>
    </message>
    <message>
        <source>The folder could not be opened</source>
        <translation>无法打开文件夹</translation>
    </message>
</context>
<context>
    <name>FailureList</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>，</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation>显示</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation>添加歌曲</translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation>歌曲 (*.%1)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <comment>the title of a dialog</comment>
        <translation>保存报告</translation>
    </message>
    <message>
        <source>Spreadsheet (*.csv)</source>
        <translation>电子表格 (*.csv)</translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation>无法确定文件是否已移动（%1）。请在 %2 和 %3 查找。</translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation>无法确定文件是否已移动（%1）。请在 %2 和 %3 查找；放在其位置上的内容位于 %4。</translation>
    </message>
    <message>
        <source>The disk cannot store a file of this name</source>
        <translation>磁盘无法存储此名称的文件</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation>发现顺序</translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation>释放空间</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation>名称</translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation>筛选名称和文件夹</translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation>显示所有组</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>排序：%1</translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation>返回首次结果</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>查找更多重复项</translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation>显示扫描找到的重复项</translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation>将每首歌曲与其他所有歌曲比较，支持各种文字</translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation>清理此组</translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation>将重复项移到回收站</translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation>将重复项移到文件夹…</translation>
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
        <translation>单次会话最多只能导入 %L1 首歌曲。

对于大型音乐库，建议：
• 按流派或文件夹分批处理
• 每次会话使用 1,000–2,000 首歌曲以获得最佳性能
• 开始新的一批前清除之前的结果

这有助于准确、快速地检测重复项。</translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation>最多只能导入 %L1 首歌曲。
请选择较小的文件夹。</translation>
    </message>
    <message>
        <source>Sonavo is busy. Open “%1” again when that is done.</source>
        <translation>Sonavo 正忙。请在完成后重新打开“%1”。</translation>
    </message>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo 正忙。请在完成后重新打开这 %Ln 个项目。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>扫描“%1”会替换此列表，其中还有 %Ln 个重复项。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>扫描这 %L1 个项目会替换此列表，其中还有 %Ln 个重复项。</numerusform>
        </translation>
    </message>
    <message>
        <source>Scan All %L1</source>
        <extracomment>Button; the number of files and folders that were dropped, at least 2</extracomment>
        <translation>全部扫描（%L1）</translation>
    </message>
    <message>
        <source>Of %L1 items that were dropped, only “%2” is scanned</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>在拖放的 %L1 个项目中，仅扫描“%2”</translation>
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
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>返回首次结果</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>保留无损副本</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation>关于 Sonavo</translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message>
        <source>Actions</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>添加歌曲</translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation>全部清理</translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation>移动重复项</translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>%Ln 个重复项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>共 %Ln 首</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>清空列表</translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation>太好了！没有重复项</translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation>您的音乐库整洁有序</translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>已扫描 %Ln 首歌曲</numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation>全部唯一</translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Playing %1</source>
        <comment>%1 is the name of a song</comment>
        <translation>正在播放 %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>停止</translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>The disk of %1 is not there</source>
        <comment>%1 is a path</comment>
        <translation>%1 所在的磁盘不存在</translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation>%1 处的文件不是之前移到那里的文件</translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation>文件既不在 %1，也不在 %2</translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation>要替换列表吗？</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation>扫描</translation>
    </message>
</context>
<context>
    <name>ReportSaver</name>
    <message>
        <source>Saving the report...</source>
        <translation>正在保存报告…</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>报告已保存：%1</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>The report was not saved</source>
        <translation>报告未保存</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>无法保存报告：%1</translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation>正在更改分组…</translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation>没有更改任何原件</translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>已更改 %Ln 个组的原件</numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>查找更多重复项</translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation>正在将每首歌曲与其他所有歌曲比较…</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>返回首次结果</translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation>已返回首次结果</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>保留这首</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>保留此文件夹中的副本</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>保留无损副本</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>不是重复项</translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation>没有更改任何组</translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation>不是重复项：%1</translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation>正在开始扫描…</translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation>第 1/4 步：查找音频文件…</translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation>所选文件夹中没有音频文件。</translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>第 1/4 步：处理 %Ln 个音频文件…</numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation>第 1/4 步：处理音频文件（%L1/%L2）</translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation>第 2/4 步：准备分析重复项…</translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation>没有找到支持的音频文件。</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation>第 2/4 步：分析重复项…</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Row Above</source>
        <translation>上一行</translation>
    </message>
    <message>
        <source>Row Below</source>
        <translation>下一行</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>第一行</translation>
    </message>
    <message>
        <source>Last Row</source>
        <translation>最后一行</translation>
    </message>
    <message>
        <source>Hide the Songs of the Group</source>
        <translation>隐藏组中的歌曲</translation>
    </message>
    <message>
        <source>Show the Songs of the Group</source>
        <translation>显示组中的歌曲</translation>
    </message>
    <message>
        <source>On a Group: Hide or Show Its Songs</source>
        <translation>在组上：隐藏或显示其歌曲</translation>
    </message>
    <message>
        <source>Listen, or Stop</source>
        <translation>试听或停止</translation>
    </message>
    <message>
        <source>Listen from the Same Second</source>
        <translation>从同一秒试听</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>移到回收站</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>保留这首</translation>
    </message>
    <message>
        <source>Menu of the Song or Group</source>
        <translation>歌曲或组的菜单</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>添加歌曲</translation>
    </message>
    <message>
        <source>Scan Copied Files</source>
        <translation>扫描已复制的文件</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>保存报告…</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>清空列表</translation>
    </message>
    <message>
        <source>Filter Names and Folders</source>
        <translation>筛选名称和文件夹</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>查找更多重复项</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Open the Menu</source>
        <translation>打开菜单</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation>显示主窗口</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>下一个控件</translation>
    </message>
    <message>
        <source>Close What Lies on Top, or Stop a Clean-Up</source>
        <translation>关闭最上层内容，或停止清理</translation>
    </message>
</context>
<context>
    <name>ShortcutsSheet</name>
    <message>
        <source>In the List of Results</source>
        <translation>在结果列表中</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>任何位置</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation>检测到大型音乐库</translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation>添加大量歌曲可能会影响性能。</translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation>性能建议：</translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation>最佳性能：不超过 5,000 首歌曲</translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation>良好性能：5,000–10,000 首歌曲</translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation>每次会话最多：500,000 首歌曲</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation>仍要添加</translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>停止</translation>
    </message>
    <message>
        <source>Listen</source>
        <comment>to a song</comment>
        <translation>试听</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>保留此文件夹中的副本</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>保留无损副本</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>不是重复项</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>复制路径</translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation>停止试听</translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation>点击试听并确认这首歌曲</translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation>删除这首歌曲</translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation>将 %1 移到回收站</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation>无法在此显示器上打开窗口；--report 不需要窗口</translation>
    </message>
    <message>
        <source>the window is busy and can scan nothing until that is done</source>
        <translation>窗口正忙，完成前无法扫描</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation>没有可打开窗口的显示器；--report 不需要显示器</translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>时长</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation>999.99&#xa0;GB</translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation>原件</translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation>重复</translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation>文件名</translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation>无法使用此磁盘的回收站：%1</translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation>它在另一个文件系统上</translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation>不是文件</translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation>撤销：%1</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation>欢迎使用 Sonavo</translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation>查找并移除音乐库中重复的歌曲</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>浏览文件</translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation>切换到浅色主题</translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation>切换到深色主题</translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>有 %Ln 个文件无法移动</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message>
        <source>Original</source>
        <comment>a song</comment>
        <translation>原件</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <comment>a song</comment>
        <translation>重复项</translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>一组 %Ln 首歌曲</numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation>可释放 %1</translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation>只有将每首歌曲与其他所有歌曲比较才找到。删除前请先试听。</translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>筛选隐藏了 %Ln 个重复项</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation>没有找到重复项</translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>找到 %Ln 个重复文件</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation>显示</translation>
    </message>
</context>
</TS>
