<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation>О программе Sonavo</translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation>Sonavo %1</translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation>Находит песни, которые есть в папке с музыкой больше одного раза. Всё происходит на этом компьютере, и ничего не удаляется безвозвратно.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation>Шаг 1/4: группировка по точному названию…</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation>Шаг 2/4: поиск похожих имён файлов…</translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation>Шаг 3/4: сравнение исполнителей и названий…</translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation>Шаг 4/4: тщательное сравнение остальных песен…</translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Перетащите папку, чтобы найти повторяющиеся песни</translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>%Ln повторяющийся файл • %1 • Прослушайте перед удалением</numerusform>
            <numerusform>%Ln повторяющихся файла • %1 • Прослушайте перед удалением</numerusform>
            <numerusform>%Ln повторяющихся файлов • %1 • Прослушайте перед удалением</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>Найден %Ln повторяющийся файл • Перед удалением прослушайте его, нажав на динамик</numerusform>
            <numerusform>Найдено %Ln повторяющихся файла • Перед удалением прослушайте их, нажав на динамик</numerusform>
            <numerusform>Найдено %Ln повторяющихся файлов • Перед удалением прослушайте их, нажав на динамик</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>%1 KB</source>
        <translation>%1&#xa0;КБ</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1&#xa0;МБ</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1&#xa0;ГБ</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1&#xa0;ТБ</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1&#xa0;ПБ</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1&#xa0;ЭБ</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0&#xa0;КБ</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>1 байт</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%n байт</numerusform>
            <numerusform>%n байта</numerusform>
            <numerusform>%n байт</numerusform>
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
        <translation>этого шага</translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation>Файлы не изменяются</translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation>Отменить и вернуться</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>Найден %Ln файл</numerusform>
            <numerusform>Найдено %Ln файла</numerusform>
            <numerusform>Найдено %Ln файлов</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation>Файл больше не существует</translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation>Не удаётся прочитать файл (%1)</translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation>Файл изменился после поиска</translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation>Файл исчез или был изменён за это время</translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation>Оригинал группы больше не существует</translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation>Не удаётся прочитать оригинал группы (%1)</translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation>Оригинал группы изменился после поиска</translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation>Оригинал группы исчез или был изменён за это время</translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation>Файл недоступен</translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation>Оригинал группы исчез или был изменён</translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation>Файл изменился в момент перемещения</translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation>%1, поэтому файл возвращён на место</translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation>%1. Теперь файл находится здесь: %2. Причина: %3</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation>%1.</translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation>Возможно, это тот же файл, что и оригинал, видимый и в другой файловой системе</translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation>Остаётся здесь: %1. Причина: %2</translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation>Другая песня этой группы&#xa0;— тот же самый файл, и она тоже исчезла бы.</translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation>Другая песня этой группы тоже исчезла</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation>Перемещение в корзину: %L1 из %L2</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation>Перемещение в папку: %L1 из %L2</translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation>Выберите папку для повторяющихся файлов</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Выбрать папку</translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation>Не удалось создать папку: %1</translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation>Путь к папке скопирован в буфер обмена</translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation>Не удалось удалить файл: %1</translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation>Перемещено в корзину: %1</translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation>Возврат на место: %L1 из %L2</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation>Отменено: %1</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation>Переместить в корзину</translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation>Переместить в папку</translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation>Ход выполнения</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Остановка…</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Остановить</translation>
    </message>
</context>
<context>
    <name>CleanUpSummaryView</name>
    <message>
        <source>Back to List</source>
        <translation>Вернуться к списку</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Повторить</translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation>Других дубликатов не найдено</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>Найден ещё %Ln дубликат</numerusform>
            <numerusform>Найдено ещё %Ln дубликата</numerusform>
            <numerusform>Найдено ещё %Ln дубликатов</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>Переместить %Ln дубликат (%1) в корзину</numerusform>
            <numerusform>Переместить %Ln дубликата (%1) в корзину</numerusform>
            <numerusform>Переместить %Ln дубликатов (%1) в корзину</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>Переместить %Ln дубликат (%1) в папку</numerusform>
            <numerusform>Переместить %Ln дубликата (%1) в папку</numerusform>
            <numerusform>Переместить %Ln дубликатов (%1) в папку</numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation>Нет дубликатов для перемещения</translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>%Ln файл перемещён в корзину</numerusform>
            <numerusform>%Ln файла перемещено в корзину</numerusform>
            <numerusform>%Ln файлов перемещено в корзину</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>%Ln файл перемещён в папку</numerusform>
            <numerusform>%Ln файла перемещено в папку</numerusform>
            <numerusform>%Ln файлов перемещено в папку</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>%Ln файл перемещён</numerusform>
            <numerusform>%Ln файла перемещено</numerusform>
            <numerusform>%Ln файлов перемещено</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>ошибок: %Ln</numerusform>
            <numerusform>ошибок: %Ln</numerusform>
            <numerusform>ошибок: %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>не перемещено: %Ln</numerusform>
            <numerusform>не перемещено: %Ln</numerusform>
            <numerusform>не перемещено: %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation>Освобождено %1</translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation>Ни один файл не перемещён</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>%Ln файл перемещён в корзину</numerusform>
            <numerusform>%Ln файла перемещено в корзину</numerusform>
            <numerusform>%Ln файлов перемещено в корзину</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>%Ln файл перемещён в папку</numerusform>
            <numerusform>%Ln файла перемещено в папку</numerusform>
            <numerusform>%Ln файлов перемещено в папку</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>Осталась %Ln песня</numerusform>
            <numerusform>Осталось %Ln песни</numerusform>
            <numerusform>Осталось %Ln песен</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>Новый диск не смог сохранить все атрибуты %Ln песни: %1</numerusform>
            <numerusform>Новый диск не смог сохранить все атрибуты %Ln песен: %1</numerusform>
            <numerusform>Новый диск не смог сохранить все атрибуты %Ln песен: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>%Ln файл возвращён на место</numerusform>
            <numerusform>%Ln файла возвращено на место</numerusform>
            <numerusform>%Ln файлов возвращено на место</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>ошибок: %Ln</numerusform>
            <numerusform>ошибок: %Ln</numerusform>
            <numerusform>ошибок: %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>не возвращено: %Ln</numerusform>
            <numerusform>не возвращено: %Ln</numerusform>
            <numerusform>не возвращено: %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>Не удалось вернуть на место %Ln файл:</numerusform>
            <numerusform>Не удалось вернуть на место %Ln файла:</numerusform>
            <numerusform>Не удалось вернуть на место %Ln файлов:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>и ещё %Ln</numerusform>
            <numerusform>и ещё %Ln</numerusform>
            <numerusform>и ещё %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation>Осталось несколько секунд</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>Осталась примерно %Ln секунда</numerusform>
            <numerusform>Осталось примерно %Ln секунды</numerusform>
            <numerusform>Осталось примерно %Ln секунд</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>Осталась примерно %Ln минута</numerusform>
            <numerusform>Осталось примерно %Ln минуты</numerusform>
            <numerusform>Осталось примерно %Ln минут</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>Остался примерно %Ln час</numerusform>
            <numerusform>Осталось примерно %Ln часа</numerusform>
            <numerusform>Осталось примерно %Ln часов</numerusform>
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
        <translation>Использование: sonavo [--new-window] [PATH...]
               sonavo --report [--further] [--json | --csv] PATH...

Находит песни, которые есть в папке с музыкой больше одного раза, и помогает их удалить.
Открывает окно, в котором сразу проверяются файлы и папки PATH... Если окно уже открыто,
оно выходит на передний план и проверяет их.

  --new-window   открыть окно, даже если одно уже есть
  --report       вместо этого вывести повторяющиеся песни из PATH..., ничего не меняя
  --further      сравнить каждую песню со всеми остальными, на любом письме: находит больше
  --json         вывести их в формате JSON
  --csv          вывести их через запятую, для электронных таблиц
  -h, --help     вывести этот текст
  -v, --version  вывести версию

Код завершения: 0, если окно закрыто, задание приняло открытое окно или выведен отчёт;
1, если сообщить нечего, окно не удалось открыть или открытое окно занято;
2 при непригодных аргументах; 130 после Ctrl+C во время отчёта.
</translation>
    </message>
    <message>
        <source>skipped, its name is not valid UTF-8: %1</source>
        <translation>пропущено, имя не в кодировке UTF-8: %1</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Неизвестный параметр «%1».</translation>
    </message>
    <message>
        <source>--%1 needs --report</source>
        <translation>для --%1 нужен --report</translation>
    </message>
    <message>
        <source>--report opens no window</source>
        <translation>--report не открывает окно</translation>
    </message>
    <message>
        <source>--json and --csv exclude each other</source>
        <translation>--json и --csv исключают друг друга</translation>
    </message>
    <message>
        <source>no such file or folder: %1</source>
        <translation>нет такого файла или папки: %1</translation>
    </message>
    <message>
        <source>--report needs at least one PATH</source>
        <translation>для --report нужен хотя бы один PATH</translation>
    </message>
    <message>
        <source>Try &apos;sonavo --help&apos;.</source>
        <translation>Справка: «sonavo --help».</translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation>Перетащите сюда папку с музыкой</translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Перетащите папку, чтобы найти повторяющиеся песни</translation>
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
        <translation>развёрнуто</translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation>свёрнуто</translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation>Очистить эту группу</translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation>Повторяющиеся песни</translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation>Нет групп, подходящих под фильтр</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 кбит/с</translation>
    </message>
    <message>
        <source>lossless</source>
        <comment>the kind of a sound file</comment>
        <translation>без потерь</translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation>%1 (%L2 байт)</translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation>Изменён: %1</translation>
    </message>
</context>
<context>
    <name>DuplicateViewModel</name>
    <message>
        <source>No files have been copied</source>
        <translation>Файлы не скопированы</translation>
    </message>
    <message>
        <source>The folder could not be opened</source>
        <translation>Не удалось открыть папку</translation>
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
        <translation>Показать в папке</translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation>Показать</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation>Добавить песни</translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation>Песни (*.%1)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <comment>the title of a dialog</comment>
        <translation>Сохранить отчёт</translation>
    </message>
    <message>
        <source>Spreadsheet (*.csv)</source>
        <translation>Таблица (*.csv)</translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation>Неизвестно, был ли файл перемещён (%1). Ищите его здесь: %2 или здесь: %3.</translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation>Неизвестно, был ли файл перемещён (%1). Ищите его здесь: %2 или здесь: %3, а то, что оказалось на его месте,&#xa0;— здесь: %4.</translation>
    </message>
    <message>
        <source>The disk cannot store a file of this name</source>
        <translation>Диск не может хранить файл с таким именем</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation>Как найдены</translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation>Освобождаемое место</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation>Папка</translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation>Фильтр имён и папок</translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation>Показать все группы</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>Порядок: %1</translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation>К первому результату</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Найти больше дубликатов</translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation>Показывает дубликаты, найденные при поиске</translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation>Сравнивает каждую песню со всеми остальными, в любой письменности</translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation>Очистить эту группу</translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation>Переместить дубликаты в корзину</translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation>Переместить дубликаты в папку…</translation>
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
        <translation>За один сеанс нельзя импортировать больше %L1 песен.

Для больших музыкальных коллекций рекомендуется:
• обрабатывать коллекцию частями по жанрам или папкам
• для наилучшей скорости брать по 1000–2000 песен за сеанс
• очищать прежние результаты перед новой частью

Так дубликаты находятся точно и быстро.</translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation>Нельзя импортировать больше %L1 песен.
Выберите папку поменьше.</translation>
    </message>
    <message>
        <source>Sonavo is busy. Open “%1” again when that is done.</source>
        <translation>Sonavo занят. Откройте «%1» ещё раз, когда он освободится.</translation>
    </message>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo занят. Откройте %Ln объект ещё раз, когда он освободится.</numerusform>
            <numerusform>Sonavo занят. Откройте %Ln объекта ещё раз, когда он освободится.</numerusform>
            <numerusform>Sonavo занят. Откройте %Ln объектов ещё раз, когда он освободится.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>Поиск в «%1» заменит этот список, в котором ещё %Ln дубликат.</numerusform>
            <numerusform>Поиск в «%1» заменит этот список, в котором ещё %Ln дубликата.</numerusform>
            <numerusform>Поиск в «%1» заменит этот список, в котором ещё %Ln дубликатов.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>Поиск в выбранных объектах (%L1) заменит этот список, в котором ещё %Ln дубликат.</numerusform>
            <numerusform>Поиск в выбранных объектах (%L1) заменит этот список, в котором ещё %Ln дубликата.</numerusform>
            <numerusform>Поиск в выбранных объектах (%L1) заменит этот список, в котором ещё %Ln дубликатов.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scan All %L1</source>
        <extracomment>Button; the number of files and folders that were dropped, at least 2</extracomment>
        <translation>Искать во всех (%L1)</translation>
    </message>
    <message>
        <source>Of %L1 items that were dropped, only “%2” is scanned</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>Из %L1 перетащенных объектов поиск идёт только в «%2»</translation>
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
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>К первому результату</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation>&amp;Правка</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Оставить копии без потерь</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation>&amp;Окно</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation>&amp;Справка</translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation>О программе Sonavo</translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message>
        <source>Actions</source>
        <translation>Действия</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Добавить песню</translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation>Очистить всё</translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation>Переместить</translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>%Ln дубликат</numerusform>
            <numerusform>%Ln дубликата</numerusform>
            <numerusform>%Ln дубликатов</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>всего %Ln</numerusform>
            <numerusform>всего %Ln</numerusform>
            <numerusform>всего %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Сбросить</translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation>Отлично! Дубликатов нет</translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation>В вашей музыкальной коллекции полный порядок</translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>Проверена %Ln песня</numerusform>
            <numerusform>Проверено %Ln песни</numerusform>
            <numerusform>Проверено %Ln песен</numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation>Все уникальны</translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation>Уведомление</translation>
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
        <translation>Воспроизводится %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Стоп</translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>The disk of %1 is not there</source>
        <comment>%1 is a path</comment>
        <translation>Диск отсутствует: %1</translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation>Файл %1&#xa0;— не тот, который был туда перемещён</translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation>Файла больше нет ни здесь: %1, ни здесь: %2</translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation>Заменить список?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation>Искать</translation>
    </message>
</context>
<context>
    <name>ReportSaver</name>
    <message>
        <source>Saving the report...</source>
        <translation>Сохранение отчёта…</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Отчёт сохранён: %1</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Показать в папке</translation>
    </message>
    <message>
        <source>The report was not saved</source>
        <translation>Отчёт не сохранён</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>Не удалось сохранить отчёт: %1</translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation>Изменение групп…</translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation>Ни один оригинал не изменён</translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>Оригинал изменён в %Ln группе</numerusform>
            <numerusform>Оригинал изменён в %Ln группах</numerusform>
            <numerusform>Оригинал изменён в %Ln группах</numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Найти больше дубликатов</translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation>Сравнение каждой песни со всеми остальными…</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>К первому результату</translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation>Показан первый результат</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Оставить эту</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Оставить копии в этой папке</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Оставить копии без потерь</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>Не дубликат</translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation>Ни одна группа не изменена</translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation>Не дубликат: %1</translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation>Запуск поиска…</translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation>Шаг 1/4: поиск звуковых файлов…</translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation>В выбранной папке нет звуковых файлов.</translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>Шаг 1/4: обработка %Ln звукового файла…</numerusform>
            <numerusform>Шаг 1/4: обработка %Ln звуковых файлов…</numerusform>
            <numerusform>Шаг 1/4: обработка %Ln звуковых файлов…</numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation>Шаг 1/4: обработка звуковых файлов (%L1 из %L2)</translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation>Шаг 2/4: подготовка к поиску дубликатов…</translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation>Поддерживаемых звуковых файлов не найдено.</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation>Шаг 2/4: анализ дубликатов…</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Row Above</source>
        <translation>Строка выше</translation>
    </message>
    <message>
        <source>Row Below</source>
        <translation>Строка ниже</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>Первая строка</translation>
    </message>
    <message>
        <source>Last Row</source>
        <translation>Последняя строка</translation>
    </message>
    <message>
        <source>Hide the Songs of the Group</source>
        <translation>Скрыть песни группы</translation>
    </message>
    <message>
        <source>Show the Songs of the Group</source>
        <translation>Показать песни группы</translation>
    </message>
    <message>
        <source>On a Group: Hide or Show Its Songs</source>
        <translation>На группе: скрыть или показать её песни</translation>
    </message>
    <message>
        <source>Listen, or Stop</source>
        <translation>Прослушать или остановить</translation>
    </message>
    <message>
        <source>Listen from the Same Second</source>
        <translation>Прослушать с той же секунды</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Переместить в корзину</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Оставить эту</translation>
    </message>
    <message>
        <source>Menu of the Song or Group</source>
        <translation>Меню песни или группы</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Добавить песню</translation>
    </message>
    <message>
        <source>Scan Copied Files</source>
        <translation>Искать в скопированных файлах</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>Сохранить отчёт…</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Очистить список</translation>
    </message>
    <message>
        <source>Filter Names and Folders</source>
        <translation>Фильтр имён и папок</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Найти больше дубликатов</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Open the Menu</source>
        <translation>Открыть меню</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Комбинации клавиш</translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation>Показать главное окно</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Свернуть</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Выйти</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>Следующий элемент</translation>
    </message>
    <message>
        <source>Close What Lies on Top, or Stop a Clean-Up</source>
        <translation>Закрыть верхнее окно или остановить очистку</translation>
    </message>
</context>
<context>
    <name>ShortcutsSheet</name>
    <message>
        <source>In the List of Results</source>
        <translation>В списке результатов</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>Везде</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation>Обнаружена большая коллекция</translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation>Большое число песен может замедлить работу.</translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation>Рекомендации по скорости:</translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation>Лучшая скорость: до 5000 песен</translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation>Хорошая скорость: 5000–10&#xa0;000 песен</translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation>Не больше за сеанс: 500&#xa0;000 песен</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation>Всё равно добавить</translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Стоп</translation>
    </message>
    <message>
        <source>Listen</source>
        <comment>to a song</comment>
        <translation>Прослушать</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Оставить копии в этой папке</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Оставить копии без потерь</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>Не дубликат</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Показать в папке</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Копировать путь</translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation>Остановить прослушивание</translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation>Нажмите, чтобы прослушать и проверить эту песню</translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation>Удалить эту песню</translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation>Перемещает %1 в корзину</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation>на этом дисплее нельзя открыть окно; для --report оно не нужно</translation>
    </message>
    <message>
        <source>the window is busy and can scan nothing until that is done</source>
        <translation>окно занято и пока не может ничего искать</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation>нет дисплея, на котором можно открыть окно; для --report он не нужен</translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation>Тип</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>Папка</translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation>999,99&#xa0;ГБ</translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation>ОРИГИНАЛ</translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation>ДУБЛИКАТ</translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation>Имя файла</translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation>Корзину этого диска нельзя использовать: %1</translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation>Она в другой файловой системе</translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation>Это не файл</translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation>Отменить: %1</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation>Добро пожаловать в Sonavo</translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation>Найдите и уберите повторяющиеся песни из музыкальной коллекции</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Обзор</translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation>Включить светлую тему</translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation>Включить тёмную тему</translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>Не удалось переместить %Ln файл</numerusform>
            <numerusform>Не удалось переместить %Ln файла</numerusform>
            <numerusform>Не удалось переместить %Ln файлов</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message>
        <source>Original</source>
        <comment>a song</comment>
        <translation>Оригинал</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <comment>a song</comment>
        <translation>Дубликат</translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>Группа из %Ln песни</numerusform>
            <numerusform>Группа из %Ln песен</numerusform>
            <numerusform>Группа из %Ln песен</numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation>Освободит %1</translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation>Найдена только при сравнении каждой песни со всеми остальными. Прослушайте её перед удалением.</translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>Фильтр скрывает %Ln дубликат</numerusform>
            <numerusform>Фильтр скрывает %Ln дубликата</numerusform>
            <numerusform>Фильтр скрывает %Ln дубликатов</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation>Дубликаты не найдены</translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>Найден %Ln повторяющийся файл</numerusform>
            <numerusform>Найдено %Ln повторяющихся файла</numerusform>
            <numerusform>Найдено %Ln повторяющихся файлов</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation>Показать</translation>
    </message>
</context>
</TS>
