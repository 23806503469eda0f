<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation>Sonavo について</translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation>Sonavo %1</translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation>ミュージックフォルダーに重複して入っている曲を探します。すべてこのコンピューター上で行われ、完全に削除されるものはありません。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation>ステップ 1/4: 同じタイトルでまとめています…</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation>ステップ 2/4: 似たファイル名を調べています…</translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation>ステップ 3/4: アーティストとタイトルを比較しています…</translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation>ステップ 4/4: 残りの曲を詳しく比較しています…</translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>フォルダーをドロップすると重複した曲を探します</translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>重複ファイル %Ln 個 • %1 • 削除する前に聴いて確認してください</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>重複ファイルが %Ln 個見つかりました • 削除する前にスピーカーのアイコンで確認してください</numerusform>
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
        <translation>1 バイト</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%n バイト</numerusform>
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
        <translation>このステップ</translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation>ファイルは変わりません</translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation>キャンセルして戻る</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln 個のファイルが見つかりました</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation>ファイルはもう存在しません</translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation>ファイルを読み取れません (%1)</translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation>ファイルはスキャン後に変更されています</translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation>ファイルはなくなったか、その間に変更されました</translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation>グループのオリジナルはもう存在しません</translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation>グループのオリジナルを読み取れません (%1)</translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation>グループのオリジナルはスキャン後に変更されています</translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation>グループのオリジナルはなくなったか、その間に変更されました</translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation>ファイルにアクセスできません</translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation>グループのオリジナルがなくなったか、変更されました</translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation>移動の瞬間にファイルが変更されました</translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation>%1。そのため、ファイルは元に戻されました</translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation>%1。ファイルは現在 %2 にあります: %3</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation>%1。</translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation>別のファイルシステムからも見えるオリジナルと同じファイルの可能性があります</translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation>%1 に残っています: %2</translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation>このグループの別の曲もまったく同じファイルで、一緒に失われてしまいます。</translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation>このグループの別の曲も一緒になくなりました</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation>ゴミ箱に移動中: %L1/%L2</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation>フォルダーに移動中: %L1/%L2</translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation>重複ファイルの移動先フォルダーを選択</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>フォルダーを選択</translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation>フォルダーを作成できませんでした: %1</translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation>フォルダーのパスをクリップボードにコピーしました</translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation>ファイルを削除できませんでした: %1</translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation>ゴミ箱に移動しました: %1</translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation>元に戻しています: %L1/%L2</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation>元に戻しました: %1</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation>ゴミ箱に移動</translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation>フォルダーに移動</translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>停止中…</translation>
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
        <translation>一覧に戻る</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>再試行</translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation>ほかに重複は見つかりませんでした</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>重複がさらに %Ln 個見つかりました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>重複 %Ln 個 (%1) をゴミ箱に移動</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>重複 %Ln 個 (%1) をフォルダーに移動</numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation>移動する重複はありません</translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>%Ln 個のファイルをゴミ箱に移動しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>%Ln 個のファイルをフォルダーに移動しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>%Ln 個のファイルを移動しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 個失敗</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 個は未移動</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation>%1 を節約</translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation>移動されたファイルはありません</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>%Ln 個のファイルをゴミ箱に移動しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>%Ln 個のファイルをフォルダーに移動しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>残り %Ln 曲</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>新しいディスクには %Ln 曲の一部の属性を保存できませんでした: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>%Ln 個のファイルを元に戻しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 個失敗</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln 個は戻されていません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>%Ln 個のファイルを元に戻せませんでした:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>ほか %Ln 個</numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation>残り数秒</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>残り約 %Ln 秒</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>残り約 %Ln 分</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>残り約 %Ln 時間</numerusform>
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
        <translation>使い方: sonavo [--new-window] [PATH...]
        sonavo --report [--further] [--json | --csv] PATH...

ミュージックフォルダーに重複して入っている曲を見つけ、取り除くのを助けます。
ウィンドウを開き、ファイルやフォルダー PATH... をすぐにスキャンします。
ウィンドウがすでに開いていれば、それが前面に出てスキャンします。

  --new-window   ウィンドウがあっても新しく開く
  --report       代わりに PATH... の中の重複した曲を表示し、何も変更しない
  --further      文字の種類を問わずすべての曲を互いに比較し、より多く見つける
  --json         JSON で表示する
  --csv          表計算ソフト用に、コンマ区切りの値で表示する
  -h, --help     この説明を表示する
  -v, --version  バージョンを表示する

終了ステータス: ウィンドウが閉じられた、開いているウィンドウが引き継いだ、または
レポートを表示したときは 0。報告するものがない、ウィンドウを開けない、または
開いているウィンドウが処理中のときは 1。引数が正しくないときは 2。
レポート中に Ctrl+C が押されたときは 130。
</translation>
    </message>
    <message>
        <source>skipped, its name is not valid UTF-8: %1</source>
        <translation>スキップしました。名前が有効な UTF-8 ではありません: %1</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>オプション「%1」は不明です。</translation>
    </message>
    <message>
        <source>--%1 needs --report</source>
        <translation>--%1 には --report が必要です</translation>
    </message>
    <message>
        <source>--report opens no window</source>
        <translation>--report はウィンドウを開きません</translation>
    </message>
    <message>
        <source>--json and --csv exclude each other</source>
        <translation>--json と --csv は同時に使えません</translation>
    </message>
    <message>
        <source>no such file or folder: %1</source>
        <translation>ファイルまたはフォルダーがありません: %1</translation>
    </message>
    <message>
        <source>--report needs at least one PATH</source>
        <translation>--report には少なくとも 1 つの PATH が必要です</translation>
    </message>
    <message>
        <source>Try &apos;sonavo --help&apos;.</source>
        <translation>「sonavo --help」をお試しください。</translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation>ミュージックフォルダーをここにドラッグ&amp;ドロップ</translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>フォルダーをドロップすると重複した曲を探します</translation>
    </message>
</context>
<context>
    <name>DuplicateGroupView</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>、</translation>
    </message>
    <message>
        <source>expanded</source>
        <comment>a group of songs</comment>
        <translation>展開</translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation>折りたたみ</translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation>このグループを整理</translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation>重複した曲</translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation>フィルターに一致するグループはありません</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>、</translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>lossless</source>
        <comment>the kind of a sound file</comment>
        <translation>ロスレス</translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation>%1 (%L2 バイト)</translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation>更新日時: %1</translation>
    </message>
</context>
<context>
    <name>DuplicateViewModel</name>
    <message>
        <source>No files have been copied</source>
        <translation>ファイルがコピーされていません</translation>
    </message>
    <message>
        <source>The folder could not be opened</source>
        <translation>フォルダーを開けませんでした</translation>
    </message>
</context>
<context>
    <name>FailureList</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>、</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダーで表示</translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation>表示</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation>曲を追加</translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation>曲 (*.%1)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <comment>the title of a dialog</comment>
        <translation>レポートを保存</translation>
    </message>
    <message>
        <source>Spreadsheet (*.csv)</source>
        <translation>スプレッドシート (*.csv)</translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation>ファイルが移動されたかどうか確かではありません (%1)。%2 と %3 を確認してください。</translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation>ファイルが移動されたかどうか確かではありません (%1)。%2 と %3 を確認してください。代わりに置かれたものは %4 にあります。</translation>
    </message>
    <message>
        <source>The disk cannot store a file of this name</source>
        <translation>ディスクにはこの名前のファイルを保存できません</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation>検出順</translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation>空く容量</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation>名前</translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation>名前とフォルダーを絞り込む</translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation>すべてのグループを表示</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>並べ替え: %1</translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation>最初の結果に戻る</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>さらに重複を探す</translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation>スキャンで見つかった重複を表示します</translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation>あらゆる文字で、すべての曲を互いに比較します</translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation>このグループを整理</translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation>重複をゴミ箱に移動</translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation>重複をフォルダーに移動…</translation>
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
        <translation>1 回のセッションで読み込めるのは %L1 曲までです。

大きな音楽ライブラリでは、次のことをお勧めします:
• ジャンルやフォルダーごとに分けて処理する
• 最適な速度のため 1 回につき 1,000～2,000 曲にする
• 次に進む前に前の結果を消去する

これにより、重複を正確かつ高速に検出できます。</translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation>読み込めるのは %L1 曲までです。
より小さなフォルダーを選択してください。</translation>
    </message>
    <message>
        <source>Sonavo is busy. Open “%1” again when that is done.</source>
        <translation>Sonavo は処理中です。終わってから「%1」を開き直してください。</translation>
    </message>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo は処理中です。終わってから %Ln 個の項目を開き直してください。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>「%1」をスキャンすると、まだ重複が %Ln 個残っているこの一覧が置き換えられます。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>%L1 個の項目をスキャンすると、まだ重複が %Ln 個残っているこの一覧が置き換えられます。</numerusform>
        </translation>
    </message>
    <message>
        <source>Scan All %L1</source>
        <extracomment>Button; the number of files and folders that were dropped, at least 2</extracomment>
        <translation>%L1 個すべてをスキャン</translation>
    </message>
    <message>
        <source>Of %L1 items that were dropped, only “%2” is scanned</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>ドロップされた %L1 個の項目のうち「%2」だけをスキャンします</translation>
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
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>最初の結果に戻る</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>ロスレスのコピーを残す</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation>ウィンドウ(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation>Sonavo について</translation>
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
        <translation>曲を追加</translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation>すべて整理</translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation>重複を移動</translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>重複 %Ln 個</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>全 %Ln 曲</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>一覧を消去</translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation>完璧です。重複はありません</translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation>音楽ライブラリはきれいに整理されています</translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>%Ln 曲をスキャン</numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation>すべて固有</translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation>お知らせ</translation>
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
        <translation>再生中: %1</translation>
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
        <translation>%1 のディスクがありません</translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation>%1 にあるファイルは、そこに移動されたものではありません</translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation>ファイルは %1 にも %2 にもありません</translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation>一覧を置き換えますか?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation>スキャン</translation>
    </message>
</context>
<context>
    <name>ReportSaver</name>
    <message>
        <source>Saving the report...</source>
        <translation>レポートを保存しています…</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>レポートを保存しました: %1</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダーで表示</translation>
    </message>
    <message>
        <source>The report was not saved</source>
        <translation>レポートは保存されませんでした</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>レポートを保存できませんでした: %1</translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation>グループを変更しています…</translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation>オリジナルは変更されませんでした</translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>%Ln 個のグループでオリジナルを変更しました</numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>さらに重複を探す</translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation>すべての曲を互いに比較しています…</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>最初の結果に戻る</translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation>最初の結果に戻りました</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>これを残す</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>このフォルダーのコピーを残す</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>ロスレスのコピーを残す</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>重複ではない</translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation>グループは変更されませんでした</translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation>重複ではありません: %1</translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation>スキャンを開始しています…</translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation>ステップ 1/4: 音声ファイルを探しています…</translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation>選択したフォルダーに音声ファイルが見つかりません。</translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>ステップ 1/4: %Ln 個の音声ファイルを処理しています…</numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation>ステップ 1/4: 音声ファイルを処理しています (%L1/%L2)</translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation>ステップ 2/4: 重複の分析を準備しています…</translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation>対応している音声ファイルが見つかりません。</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation>ステップ 2/4: 重複を分析しています…</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Row Above</source>
        <translation>上の行</translation>
    </message>
    <message>
        <source>Row Below</source>
        <translation>下の行</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>最初の行</translation>
    </message>
    <message>
        <source>Last Row</source>
        <translation>最後の行</translation>
    </message>
    <message>
        <source>Hide the Songs of the Group</source>
        <translation>グループの曲を隠す</translation>
    </message>
    <message>
        <source>Show the Songs of the Group</source>
        <translation>グループの曲を表示</translation>
    </message>
    <message>
        <source>On a Group: Hide or Show Its Songs</source>
        <translation>グループ上: 曲の表示を切り替え</translation>
    </message>
    <message>
        <source>Listen, or Stop</source>
        <translation>聴く/停止</translation>
    </message>
    <message>
        <source>Listen from the Same Second</source>
        <translation>同じ秒から聴く</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>ゴミ箱に移動</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>これを残す</translation>
    </message>
    <message>
        <source>Menu of the Song or Group</source>
        <translation>曲またはグループのメニュー</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>曲を追加</translation>
    </message>
    <message>
        <source>Scan Copied Files</source>
        <translation>コピーしたファイルをスキャン</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>レポートを保存…</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>一覧を消去</translation>
    </message>
    <message>
        <source>Filter Names and Folders</source>
        <translation>名前とフォルダーを絞り込む</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>さらに重複を探す</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Open the Menu</source>
        <translation>メニューを開く</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation>メインウィンドウを表示</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>次のコントロール</translation>
    </message>
    <message>
        <source>Close What Lies on Top, or Stop a Clean-Up</source>
        <translation>手前のものを閉じる、または整理を停止</translation>
    </message>
</context>
<context>
    <name>ShortcutsSheet</name>
    <message>
        <source>In the List of Results</source>
        <translation>結果の一覧</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>どこでも</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation>大きなライブラリが検出されました</translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation>多くの曲を追加すると動作が遅くなることがあります。</translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation>推奨される曲数:</translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation>最適: 5,000 曲まで</translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation>良好: 5,000～10,000 曲</translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation>セッションごとの上限: 500,000 曲</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation>それでも追加</translation>
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
        <translation>聴く</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>このフォルダーのコピーを残す</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>ロスレスのコピーを残す</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>重複ではない</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダーで表示</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>パスをコピー</translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation>再生を停止</translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation>クリックするとこの曲を聴いて確認できます</translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation>この曲を削除</translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation>%1 をゴミ箱に移動します</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation>このディスプレイではウィンドウを開けません。--report には不要です</translation>
    </message>
    <message>
        <source>the window is busy and can scan nothing until that is done</source>
        <translation>ウィンドウが処理中のため、終わるまでスキャンできません</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation>ウィンドウを開くディスプレイがありません。--report には不要です</translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>長さ</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation>999.99&#xa0;GB</translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation>オリジナル</translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation>重複</translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation>ファイル名</translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation>このディスクのゴミ箱は使用できません: %1</translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation>別のファイルシステムにあります</translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation>ファイルではありません</translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation>元に戻す: %1</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation>Sonavo へようこそ</translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation>音楽ライブラリから重複した曲を見つけて取り除きます</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>ファイルを選択</translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation>ライトテーマに切り替え</translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation>ダークテーマに切り替え</translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>%Ln 個のファイルを移動できませんでした</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message>
        <source>Original</source>
        <comment>a song</comment>
        <translation>オリジナル</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <comment>a song</comment>
        <translation>重複</translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>%Ln 曲のグループ</numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation>%1 空きます</translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation>すべての曲を互いに比較して初めて見つかった曲です。削除する前に聴いて確認してください。</translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>フィルターで重複 %Ln 個が非表示です</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation>重複は見つかりませんでした</translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>重複ファイルが %Ln 個見つかりました</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation>表示</translation>
    </message>
</context>
</TS>
