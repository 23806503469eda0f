<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation>عن Sonavo</translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation>Sonavo %1</translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation>يعثر على الأغاني الموجودة أكثر من مرة في مجلد الموسيقى. يجري كل شيء على هذا الحاسوب، ولا يُحذف أي شيء نهائيًا.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>أغلق</translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation>الخطوة 1/4: التجميع حسب العنوان المطابق…</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation>الخطوة 2/4: تحليل أسماء الملفات المتشابهة…</translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation>الخطوة 3/4: مقارنة الفنان والعنوان…</translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation>الخطوة 4/4: مقارنة معمّقة لبقية الأغاني…</translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>أفلت مجلدًا للبحث عن الأغاني المكررة</translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>لم يُعثر على ملفات مكررة • %1 • استمع للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على ملف مكرر واحد • %1 • استمع للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على ملفين مكررين • %1 • استمع للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على %Ln ملفات مكررة • %1 • استمع للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على %Ln ملفًا مكررًا • %1 • استمع للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على %Ln ملف مكرر • %1 • استمع للتحقق قبل الحذف</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>لم يُعثر على ملفات مكررة • استخدم رمز مكبر الصوت للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على ملف مكرر واحد • استخدم رمز مكبر الصوت للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على ملفين مكررين • استخدم رمز مكبر الصوت للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على %Ln ملفات مكررة • استخدم رمز مكبر الصوت للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على %Ln ملفًا مكررًا • استخدم رمز مكبر الصوت للتحقق قبل الحذف</numerusform>
            <numerusform>عُثر على %Ln ملف مكرر • استخدم رمز مكبر الصوت للتحقق قبل الحذف</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>%1 KB</source>
        <translation>%1&#xa0;ك.ب</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1&#xa0;م.ب</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1&#xa0;ج.ب</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1&#xa0;ت.ب</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1&#xa0;ب.ب</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1&#xa0;إ.ب</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>صفر&#xa0;ك.ب</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>بايت واحد</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%Ln بايت</numerusform>
            <numerusform>بايت واحد</numerusform>
            <numerusform>بايتان</numerusform>
            <numerusform>%Ln بايتات</numerusform>
            <numerusform>%Ln بايتًا</numerusform>
            <numerusform>%Ln بايت</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CircularProgressView</name>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translatorcomment>Ends with an Arabic letter mark (U+061C): without it the sign would be on the right of the digits.</translatorcomment>
        <translation>%L1٪؜</translation>
    </message>
    <message>
        <source>of this step</source>
        <comment>follows a percentage</comment>
        <translation>من هذه الخطوة</translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation>ملفاتك تبقى كما هي</translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation>ألغِ وارجع</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>لم يُعثر على ملفات</numerusform>
            <numerusform>عُثر على ملف واحد</numerusform>
            <numerusform>عُثر على ملفين</numerusform>
            <numerusform>عُثر على %Ln ملفات</numerusform>
            <numerusform>عُثر على %Ln ملفًا</numerusform>
            <numerusform>عُثر على %Ln ملف</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation>لم يعد الملف موجودًا</translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation>تعذرت قراءة الملف (%1)</translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation>تغيّر الملف بعد فحصه</translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation>اختفى الملف أو تغيّر في هذه الأثناء</translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation>لم يعد أصل مجموعته موجودًا</translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation>تعذرت قراءة أصل مجموعته (%1)</translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation>تغيّر أصل مجموعته بعد فحصه</translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation>اختفى أصل مجموعته أو تغيّر في هذه الأثناء</translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation>تعذر الوصول إلى الملف</translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation>اختفى أصل مجموعته أو تغيّر</translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation>تغيّر الملف لحظة نقله</translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation>%1، ولذلك أُعيد الملف إلى مكانه</translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation>%1. الملف الآن في %2: %3</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation>%1.</translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation>قد يكون هو نفسه ملفًا أصليًا يظهر أيضًا في نظام ملفات آخر</translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation>يبقى في %1: %2</translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation>أغنية أخرى من هذه المجموعة هي الملف نفسه وستختفي أيضًا.</translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation>اختفت أغنية أخرى من هذه المجموعة أيضًا</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation>يُنقل %L1 من %L2 إلى سلة المهملات</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation>يُنقل %L1 من %L2 إلى المجلد</translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation>اختر مجلدًا لنقل الملفات المكررة إليه</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>اختر المجلد</translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation>تعذر إنشاء المجلد: %1</translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation>نُسخ مسار المجلد إلى الحافظة</translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation>تعذر حذف الملف: %1</translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation>نُقل إلى سلة المهملات: %1</translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation>يُعاد %L1 من %L2 إلى مكانه</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation>تُراجع عن: %1</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation>انقل إلى سلة المهملات</translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation>انقل إلى مجلد</translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation>التقدم</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translatorcomment>Ends with an Arabic letter mark (U+061C): without it the sign would be on the right of the digits.</translatorcomment>
        <translation>%L1٪؜</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>يجري الإيقاف…</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>أوقف</translation>
    </message>
</context>
<context>
    <name>CleanUpSummaryView</name>
    <message>
        <source>Back to List</source>
        <translation>عُد إلى القائمة</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>أعد المحاولة</translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation>لم يُعثر على تكرارات أخرى</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>لم يُعثر على تكرارات أخرى</numerusform>
            <numerusform>عُثر على تكرار آخر</numerusform>
            <numerusform>عُثر على تكرارين آخرين</numerusform>
            <numerusform>عُثر على %Ln تكرارات أخرى</numerusform>
            <numerusform>عُثر على %Ln تكرارًا آخر</numerusform>
            <numerusform>عُثر على %Ln تكرار آخر</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>لا شيء (%1) لنقله إلى سلة المهملات</numerusform>
            <numerusform>انقل تكرار واحد (%1) إلى سلة المهملات</numerusform>
            <numerusform>انقل تكرارين (%1) إلى سلة المهملات</numerusform>
            <numerusform>انقل %Ln تكرارات (%1) إلى سلة المهملات</numerusform>
            <numerusform>انقل %Ln تكرارًا (%1) إلى سلة المهملات</numerusform>
            <numerusform>انقل %Ln تكرار (%1) إلى سلة المهملات</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>لا شيء (%1) لنقله إلى مجلد</numerusform>
            <numerusform>انقل تكرار واحد (%1) إلى مجلد</numerusform>
            <numerusform>انقل تكرارين (%1) إلى مجلد</numerusform>
            <numerusform>انقل %Ln تكرارات (%1) إلى مجلد</numerusform>
            <numerusform>انقل %Ln تكرارًا (%1) إلى مجلد</numerusform>
            <numerusform>انقل %Ln تكرار (%1) إلى مجلد</numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation>لا تكرارات لنقلها</translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>لم يُنقل أي ملف إلى سلة المهملات</numerusform>
            <numerusform>نُقل ملف واحد إلى سلة المهملات</numerusform>
            <numerusform>نُقل ملفين إلى سلة المهملات</numerusform>
            <numerusform>نُقل %Ln ملفات إلى سلة المهملات</numerusform>
            <numerusform>نُقل %Ln ملفًا إلى سلة المهملات</numerusform>
            <numerusform>نُقل %Ln ملف إلى سلة المهملات</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>لم يُنقل أي ملف إلى المجلد</numerusform>
            <numerusform>نُقل ملف واحد إلى المجلد</numerusform>
            <numerusform>نُقل ملفين إلى المجلد</numerusform>
            <numerusform>نُقل %Ln ملفات إلى المجلد</numerusform>
            <numerusform>نُقل %Ln ملفًا إلى المجلد</numerusform>
            <numerusform>نُقل %Ln ملف إلى المجلد</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>لم يُنقل أي ملف</numerusform>
            <numerusform>نُقل ملف واحد</numerusform>
            <numerusform>نُقل ملفين</numerusform>
            <numerusform>نُقل %Ln ملفات</numerusform>
            <numerusform>نُقل %Ln ملفًا</numerusform>
            <numerusform>نُقل %Ln ملف</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>لم يُنقل %Ln</numerusform>
            <numerusform>لم يُنقل %Ln</numerusform>
            <numerusform>لم يُنقل %Ln</numerusform>
            <numerusform>لم يُنقل %Ln</numerusform>
            <numerusform>لم يُنقل %Ln</numerusform>
            <numerusform>لم يُنقل %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation>تم توفير %1</translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation>لم يُنقل أي ملف</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>لم يُنقل أي ملف إلى سلة المهملات</numerusform>
            <numerusform>نُقل ملف واحد إلى سلة المهملات</numerusform>
            <numerusform>نُقل ملفين إلى سلة المهملات</numerusform>
            <numerusform>نُقل %Ln ملفات إلى سلة المهملات</numerusform>
            <numerusform>نُقل %Ln ملفًا إلى سلة المهملات</numerusform>
            <numerusform>نُقل %Ln ملف إلى سلة المهملات</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>لم يُنقل أي ملف إلى مجلد</numerusform>
            <numerusform>نُقل ملف واحد إلى مجلد</numerusform>
            <numerusform>نُقل ملفين إلى مجلد</numerusform>
            <numerusform>نُقل %Ln ملفات إلى مجلد</numerusform>
            <numerusform>نُقل %Ln ملفًا إلى مجلد</numerusform>
            <numerusform>نُقل %Ln ملف إلى مجلد</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>لم تبقَ أي أغنية</numerusform>
            <numerusform>بقيت أغنية واحدة</numerusform>
            <numerusform>بقيت أغنيتان</numerusform>
            <numerusform>بقيت %Ln أغانٍ</numerusform>
            <numerusform>بقيت %Ln أغنية</numerusform>
            <numerusform>بقيت %Ln أغنية</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>حفظ القرص الجديد كل السمات: %1</numerusform>
            <numerusform>لم يتمكن القرص الجديد من حفظ كل سمات أغنية واحدة: %1</numerusform>
            <numerusform>لم يتمكن القرص الجديد من حفظ كل سمات أغنيتين: %1</numerusform>
            <numerusform>لم يتمكن القرص الجديد من حفظ كل سمات %Ln أغانٍ: %1</numerusform>
            <numerusform>لم يتمكن القرص الجديد من حفظ كل سمات %Ln أغنية: %1</numerusform>
            <numerusform>لم يتمكن القرص الجديد من حفظ كل سمات %Ln أغنية: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>لم يُعد أي ملف إلى مكانه</numerusform>
            <numerusform>أُعيد ملف واحد إلى مكانه</numerusform>
            <numerusform>أُعيد ملفين إلى مكانه</numerusform>
            <numerusform>أُعيد %Ln ملفات إلى مكانه</numerusform>
            <numerusform>أُعيد %Ln ملفًا إلى مكانه</numerusform>
            <numerusform>أُعيد %Ln ملف إلى مكانه</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
            <numerusform>فشل %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>لم يُعد %Ln</numerusform>
            <numerusform>لم يُعد %Ln</numerusform>
            <numerusform>لم يُعد %Ln</numerusform>
            <numerusform>لم يُعد %Ln</numerusform>
            <numerusform>لم يُعد %Ln</numerusform>
            <numerusform>لم يُعد %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>لا ملفات تعذرت إعادتها:</numerusform>
            <numerusform>تعذرت إعادة ملف واحد إلى مكانه:</numerusform>
            <numerusform>تعذرت إعادة ملفين إلى مكانه:</numerusform>
            <numerusform>تعذرت إعادة %Ln ملفات إلى مكانه:</numerusform>
            <numerusform>تعذرت إعادة %Ln ملفًا إلى مكانه:</numerusform>
            <numerusform>تعذرت إعادة %Ln ملف إلى مكانه:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>و%Ln غيرها</numerusform>
            <numerusform>و%Ln غيرها</numerusform>
            <numerusform>و%Ln غيرها</numerusform>
            <numerusform>و%Ln غيرها</numerusform>
            <numerusform>و%Ln غيرها</numerusform>
            <numerusform>و%Ln غيرها</numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation>بقيت ثوانٍ قليلة</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>بقيت %Ln ثانية تقريبًا</numerusform>
            <numerusform>بقيت ثانية واحدة تقريبًا</numerusform>
            <numerusform>بقيت ثانيتان تقريبًا</numerusform>
            <numerusform>بقيت %Ln ثوانٍ تقريبًا</numerusform>
            <numerusform>بقيت %Ln ثانية تقريبًا</numerusform>
            <numerusform>بقيت %Ln ثانية تقريبًا</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>بقيت %Ln دقيقة تقريبًا</numerusform>
            <numerusform>بقيت دقيقة واحدة تقريبًا</numerusform>
            <numerusform>بقيت دقيقتان تقريبًا</numerusform>
            <numerusform>بقيت %Ln دقائق تقريبًا</numerusform>
            <numerusform>بقيت %Ln دقيقة تقريبًا</numerusform>
            <numerusform>بقيت %Ln دقيقة تقريبًا</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>بقيت %Ln ساعة تقريبًا</numerusform>
            <numerusform>بقيت ساعة واحدة تقريبًا</numerusform>
            <numerusform>بقيت ساعتان تقريبًا</numerusform>
            <numerusform>بقيت %Ln ساعات تقريبًا</numerusform>
            <numerusform>بقيت %Ln ساعة تقريبًا</numerusform>
            <numerusform>بقيت %Ln ساعة تقريبًا</numerusform>
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
        <translation>الاستخدام: sonavo [--new-window] [PATH...]
           sonavo --report [--further] [--json | --csv] PATH...

يعثر على الأغاني الموجودة أكثر من مرة في مجلد الموسيقى ويساعد على إزالتها. يفتح نافذة
تُفحص فيها الملفات والمجلدات PATH... فورًا. إذا كانت النافذة مفتوحة، تأتي إلى المقدمة وتفحصها.

  --new-window   فتح نافذة حتى إن وُجدت واحدة
  --report       عرض الأغاني المكررة ضمن PATH... بدلًا من ذلك، دون تغيير أي شيء
  --further      مقارنة كل أغنية بكل الأغاني الأخرى، بكل الكتابات: يعثر على المزيد
  --json         عرضها بصيغة JSON
  --csv          عرضها قيمًا مفصولة بفواصل، لجداول البيانات
  -h, --help     عرض هذا النص
  -v, --version  عرض الإصدار

حالة الخروج: 0 إذا أُغلقت النافذة أو تولت النافذة المفتوحة الأمر أو عُرض تقرير؛ 1 إذا لم
يوجد ما يُعرض أو تعذر فتح نافذة أو كانت النافذة المفتوحة مشغولة؛ 2 عند وسيطات غير صالحة؛
130 بعد Ctrl+C أثناء التقرير.
</translation>
    </message>
    <message>
        <source>skipped, its name is not valid UTF-8: %1</source>
        <translation>تم التخطي، الاسم ليس UTF-8 صالحًا: %1</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>خيار غير معروف ”%1“.</translation>
    </message>
    <message>
        <source>--%1 needs --report</source>
        <translation>يحتاج --%1 إلى --report</translation>
    </message>
    <message>
        <source>--report opens no window</source>
        <translation>لا يفتح --report أي نافذة</translation>
    </message>
    <message>
        <source>--json and --csv exclude each other</source>
        <translation>لا يمكن استخدام --json و--csv معًا</translation>
    </message>
    <message>
        <source>no such file or folder: %1</source>
        <translation>لا يوجد ملف أو مجلد كهذا: %1</translation>
    </message>
    <message>
        <source>--report needs at least one PATH</source>
        <translation>يحتاج --report إلى PATH واحد على الأقل</translation>
    </message>
    <message>
        <source>Try &apos;sonavo --help&apos;.</source>
        <translation>جرّب ”sonavo --help“.</translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation>اسحب مجلد الموسيقى وأفلته هنا</translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>أفلت مجلدًا للبحث عن الأغاني المكررة</translation>
    </message>
</context>
<context>
    <name>DuplicateGroupView</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>، </translation>
    </message>
    <message>
        <source>expanded</source>
        <comment>a group of songs</comment>
        <translation>موسّعة</translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation>مطويّة</translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation>نظّف هذه المجموعة</translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation>الأغاني المكررة</translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation>لا توجد مجموعة تطابق المرشح</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>، </translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%L1 ك.بت/ث</translation>
    </message>
    <message>
        <source>lossless</source>
        <comment>the kind of a sound file</comment>
        <translation>بلا فقدان</translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation>%1 (%L2 بايت)</translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation>تغيّر في %1</translation>
    </message>
</context>
<context>
    <name>DuplicateViewModel</name>
    <message>
        <source>No files have been copied</source>
        <translation>لم تُنسخ أي ملفات</translation>
    </message>
    <message>
        <source>The folder could not be opened</source>
        <translation>تعذر فتح المجلد</translation>
    </message>
</context>
<context>
    <name>FailureList</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>، </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>أظهر في المجلد</translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation>أظهر</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation>إضافة أغانٍ</translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation>أغانٍ ⁦(*.%1)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <comment>the title of a dialog</comment>
        <translation>حفظ التقرير</translation>
    </message>
    <message>
        <source>Spreadsheet (*.csv)</source>
        <translation>جدول (*.csv)</translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation>ليس مؤكدًا أن الملف قد نُقل (%1). ابحث عنه في %2 وفي %3.</translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation>ليس مؤكدًا أن الملف قد نُقل (%1). ابحث عنه في %2 وفي %3، وعمّا وُضع مكانه في %4.</translation>
    </message>
    <message>
        <source>The disk cannot store a file of this name</source>
        <translation>لا يستطيع القرص تخزين ملف بهذا الاسم</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation>كما وُجدت</translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation>المساحة الموفّرة</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation>الاسم</translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation>المجلد</translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation>رشّح الأسماء والمجلدات</translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation>أظهر كل المجموعات</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>الترتيب: %1</translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation>عُد إلى النتيجة الأولى</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>ابحث عن المزيد</translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation>يُظهر التكرارات التي وجدها الفحص</translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation>يقارن كل أغنية بكل الأغاني الأخرى، بكل الكتابات</translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation>نظّف هذه المجموعة</translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation>انقل التكرارات إلى السلة</translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation>انقل التكرارات إلى مجلد…</translation>
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
        <translation>لا يمكن استيراد أكثر من %L1 أغنية في جلسة واحدة.

للمكتبات الموسيقية الكبيرة يُنصح بما يلي:
• معالجة المكتبة على دفعات حسب النوع أو المجلد
• استخدام ١٠٠٠ إلى ٢٠٠٠ أغنية في الجلسة لأفضل أداء
• مسح النتائج السابقة قبل بدء دفعة جديدة

يضمن ذلك كشفًا دقيقًا وسريعًا للتكرارات.</translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation>لا يمكن استيراد أكثر من %L1 أغنية.
اختر مجلدًا أصغر.</translation>
    </message>
    <message>
        <source>Sonavo is busy. Open “%1” again when that is done.</source>
        <translation>Sonavo مشغول. افتح «%1» مجددًا بعد الانتهاء.</translation>
    </message>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo مشغول. حاول مجددًا بعد الانتهاء (%Ln).</numerusform>
            <numerusform>Sonavo مشغول. افتح هذا العنصر مجددًا بعد الانتهاء.</numerusform>
            <numerusform>Sonavo مشغول. افتح هذين العنصرين مجددًا بعد الانتهاء.</numerusform>
            <numerusform>Sonavo مشغول. افتح هذه العناصر (%Ln) مجددًا بعد الانتهاء.</numerusform>
            <numerusform>Sonavo مشغول. افتح هذه العناصر (%Ln) مجددًا بعد الانتهاء.</numerusform>
            <numerusform>Sonavo مشغول. افتح هذه العناصر (%Ln) مجددًا بعد الانتهاء.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>يستبدل فحص «%1» هذه القائمة.</numerusform>
            <numerusform>يستبدل فحص «%1» هذه القائمة التي ما زال فيها تكرار واحد.</numerusform>
            <numerusform>يستبدل فحص «%1» هذه القائمة التي ما زال فيها تكراران.</numerusform>
            <numerusform>يستبدل فحص «%1» هذه القائمة التي ما زال فيها %Ln تكرارات.</numerusform>
            <numerusform>يستبدل فحص «%1» هذه القائمة التي ما زال فيها %Ln تكرارًا.</numerusform>
            <numerusform>يستبدل فحص «%1» هذه القائمة التي ما زال فيها %Ln تكرار.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>يستبدل فحص هذه العناصر (%L1) هذه القائمة.</numerusform>
            <numerusform>يستبدل فحص هذه العناصر (%L1) هذه القائمة التي ما زال فيها تكرار واحد.</numerusform>
            <numerusform>يستبدل فحص هذه العناصر (%L1) هذه القائمة التي ما زال فيها تكراران.</numerusform>
            <numerusform>يستبدل فحص هذه العناصر (%L1) هذه القائمة التي ما زال فيها %Ln تكرارات.</numerusform>
            <numerusform>يستبدل فحص هذه العناصر (%L1) هذه القائمة التي ما زال فيها %Ln تكرارًا.</numerusform>
            <numerusform>يستبدل فحص هذه العناصر (%L1) هذه القائمة التي ما زال فيها %Ln تكرار.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scan All %L1</source>
        <extracomment>Button; the number of files and folders that were dropped, at least 2</extracomment>
        <translation>افحص الكل (%L1)</translation>
    </message>
    <message>
        <source>Of %L1 items that were dropped, only “%2” is scanned</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>من %L1 عناصر أُفلتت، يُفحص «%2» فقط</translation>
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
        <translation>&amp;ملف</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>عُد إلى النتيجة الأولى</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation>ت&amp;حرير</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>احتفظ بالنسخ بلا فقدان</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation>&amp;نافذة</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation>م&amp;ساعدة</translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation>عن Sonavo</translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message>
        <source>Actions</source>
        <translation>إجراءات</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>أضف أغنية</translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation>نظّف الكل</translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation>انقل التكرارات</translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>لا تكرارات</numerusform>
            <numerusform>تكرار واحد</numerusform>
            <numerusform>تكراران</numerusform>
            <numerusform>%Ln تكرارات</numerusform>
            <numerusform>%Ln تكرارًا</numerusform>
            <numerusform>%Ln تكرار</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>المجموع %Ln</numerusform>
            <numerusform>المجموع %Ln</numerusform>
            <numerusform>المجموع %Ln</numerusform>
            <numerusform>المجموع %Ln</numerusform>
            <numerusform>المجموع %Ln</numerusform>
            <numerusform>المجموع %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>امسح القائمة</translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation>رائع! لا توجد تكرارات</translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation>مكتبتك الموسيقية نظيفة ومنظّمة</translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>لم تُفحص أي أغنية</numerusform>
            <numerusform>فُحصت أغنية واحدة</numerusform>
            <numerusform>فُحصت أغنيتان</numerusform>
            <numerusform>فُحصت %Ln أغانٍ</numerusform>
            <numerusform>فُحصت %Ln أغنية</numerusform>
            <numerusform>فُحصت %Ln أغنية</numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation>كلها فريدة</translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation>إشعار</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Playing %1</source>
        <comment>%1 is the name of a song</comment>
        <translation>يُشغّل %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>أوقف</translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>The disk of %1 is not there</source>
        <comment>%1 is a path</comment>
        <translation>قرص %1 غير موجود</translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation>الملف الموجود في %1 ليس الذي نُقل إلى هناك</translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation>لم يعد الملف موجودًا في %1 ولا في %2</translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation>هل تُستبدل القائمة؟</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>ألغِ</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation>افحص</translation>
    </message>
</context>
<context>
    <name>ReportSaver</name>
    <message>
        <source>Saving the report...</source>
        <translation>يُحفظ التقرير…</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>حُفظ التقرير: %1</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>أظهر في المجلد</translation>
    </message>
    <message>
        <source>The report was not saved</source>
        <translation>لم يُحفظ التقرير</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>تعذر حفظ التقرير: %1</translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation>تُغيّر المجموعات…</translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation>لم يتغير أي أصل</translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>لم يتغير أي أصل</numerusform>
            <numerusform>تغيّر الأصل في مجموعة واحدة</numerusform>
            <numerusform>تغيّر الأصل في مجموعتين</numerusform>
            <numerusform>تغيّر الأصل في %Ln مجموعات</numerusform>
            <numerusform>تغيّر الأصل في %Ln مجموعة</numerusform>
            <numerusform>تغيّر الأصل في %Ln مجموعة</numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>ابحث عن المزيد</translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation>تُقارن كل أغنية بكل الأغاني الأخرى…</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>عُد إلى النتيجة الأولى</translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation>تمت العودة إلى النتيجة الأولى</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>احتفظ بهذه</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>احتفظ بنسخ هذا المجلد</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>احتفظ بالنسخ بلا فقدان</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>ليست تكرارًا</translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation>لم تتغير أي مجموعة</translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation>ليست تكرارًا: %1</translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation>يبدأ الفحص…</translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation>الخطوة 1/4: البحث عن الملفات الصوتية…</translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation>لم يُعثر على ملفات صوتية في المجلد المختار.</translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>الخطوة 1/4: لا ملفات صوتية…</numerusform>
            <numerusform>الخطوة 1/4: معالجة ملف صوتي واحد…</numerusform>
            <numerusform>الخطوة 1/4: معالجة ملفين صوتيين…</numerusform>
            <numerusform>الخطوة 1/4: معالجة %Ln ملفات صوتية…</numerusform>
            <numerusform>الخطوة 1/4: معالجة %Ln ملفًا صوتيًا…</numerusform>
            <numerusform>الخطوة 1/4: معالجة %Ln ملف صوتي…</numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation>الخطوة 1/4: معالجة الملفات الصوتية (%L1 من %L2)</translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation>الخطوة 2/4: التحضير لتحليل التكرارات…</translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation>لم يُعثر على ملفات صوتية مدعومة.</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation>الخطوة 2/4: تحليل التكرارات…</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Row Above</source>
        <translation>السطر الأعلى</translation>
    </message>
    <message>
        <source>Row Below</source>
        <translation>السطر الأسفل</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>السطر الأول</translation>
    </message>
    <message>
        <source>Last Row</source>
        <translation>السطر الأخير</translation>
    </message>
    <message>
        <source>Hide the Songs of the Group</source>
        <translation>أخفِ أغاني المجموعة</translation>
    </message>
    <message>
        <source>Show the Songs of the Group</source>
        <translation>أظهر أغاني المجموعة</translation>
    </message>
    <message>
        <source>On a Group: Hide or Show Its Songs</source>
        <translation>على مجموعة: أخفِ أغانيها أو أظهرها</translation>
    </message>
    <message>
        <source>Listen, or Stop</source>
        <translation>استمع أو أوقف</translation>
    </message>
    <message>
        <source>Listen from the Same Second</source>
        <translation>استمع من الثانية نفسها</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>انقل إلى سلة المهملات</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>احتفظ بهذه</translation>
    </message>
    <message>
        <source>Menu of the Song or Group</source>
        <translation>قائمة الأغنية أو المجموعة</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>أضف أغنية</translation>
    </message>
    <message>
        <source>Scan Copied Files</source>
        <translation>افحص الملفات المنسوخة</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>احفظ التقرير…</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>امسح القائمة</translation>
    </message>
    <message>
        <source>Filter Names and Folders</source>
        <translation>رشّح الأسماء والمجلدات</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>ابحث عن المزيد</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>تراجع</translation>
    </message>
    <message>
        <source>Open the Menu</source>
        <translation>افتح القائمة</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>اختصارات لوحة المفاتيح</translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation>أظهر النافذة الرئيسية</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>صغّر</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>أنهِ</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>العنصر التالي</translation>
    </message>
    <message>
        <source>Close What Lies on Top, or Stop a Clean-Up</source>
        <translation>أغلق ما في الأعلى أو أوقف التنظيف</translation>
    </message>
</context>
<context>
    <name>ShortcutsSheet</name>
    <message>
        <source>In the List of Results</source>
        <translation>في قائمة النتائج</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>في كل مكان</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>أغلق</translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation>مكتبة كبيرة</translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation>قد تؤثر إضافة عدد كبير من الأغاني في الأداء.</translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation>توصيات الأداء:</translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation>أفضل أداء: حتى ٥٠٠٠ أغنية</translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation>أداء جيد: من ٥٠٠٠ إلى ١٠٠٠٠ أغنية</translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation>الحد الأقصى في الجلسة: ٥٠٠٠٠٠ أغنية</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>ألغِ</translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation>أضف على أي حال</translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>أوقف</translation>
    </message>
    <message>
        <source>Listen</source>
        <comment>to a song</comment>
        <translation>استمع</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>احتفظ بنسخ هذا المجلد</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>احتفظ بالنسخ بلا فقدان</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>ليست تكرارًا</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>أظهر في المجلد</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>انسخ المسار</translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation>أوقف الاستماع</translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation>انقر للاستماع إلى هذه الأغنية والتحقق منها</translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation>احذف هذه الأغنية</translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation>ينقل %1 إلى سلة المهملات</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation>تعذر فتح نافذة على هذه الشاشة؛ ‎--report لا يحتاجها</translation>
    </message>
    <message>
        <source>the window is busy and can scan nothing until that is done</source>
        <translation>النافذة مشغولة ولا يمكنها الفحص حتى تنتهي</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation>لا توجد شاشة لفتح نافذة عليها؛ ‎--report لا يحتاجها</translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation>النوع</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>المدة</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>الحجم</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>المجلد</translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation>٩٩٩٫٩٩&#xa0;ج.ب</translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation>الأصل</translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation>مكررة</translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation>اسم الملف</translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation>أغلق</translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation>تعذر استخدام سلة مهملات هذا القرص: %1</translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation>إنها على نظام ملفات آخر</translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation>ليس ملفًا</translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation>تراجع</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation>تراجع عن: %1</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation>مرحبًا بك في Sonavo</translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation>اعثر على الأغاني المكررة في مكتبتك الموسيقية وأزلها</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>تصفّح الملفات</translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation>بدّل إلى السمة الفاتحة</translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation>بدّل إلى السمة الداكنة</translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>لا ملفات تعذر نقلها</numerusform>
            <numerusform>تعذر نقل ملف واحد</numerusform>
            <numerusform>تعذر نقل ملفين</numerusform>
            <numerusform>تعذر نقل %Ln ملفات</numerusform>
            <numerusform>تعذر نقل %Ln ملفًا</numerusform>
            <numerusform>تعذر نقل %Ln ملف</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message>
        <source>Original</source>
        <comment>a song</comment>
        <translation>أصل</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <comment>a song</comment>
        <translation>مكررة</translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>مجموعة فارغة</numerusform>
            <numerusform>مجموعة من أغنية واحدة</numerusform>
            <numerusform>مجموعة من أغنيتين</numerusform>
            <numerusform>مجموعة من %Ln أغانٍ</numerusform>
            <numerusform>مجموعة من %Ln أغنية</numerusform>
            <numerusform>مجموعة من %Ln أغنية</numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation>يوفّر %1</translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation>لم يُعثر عليها إلا بمقارنة كل أغنية بكل الأغاني الأخرى. استمع إليها قبل حذفها.</translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>لا يُخفي المرشح شيئًا</numerusform>
            <numerusform>يُخفي المرشح تكرار واحد</numerusform>
            <numerusform>يُخفي المرشح تكرارين</numerusform>
            <numerusform>يُخفي المرشح %Ln تكرارات</numerusform>
            <numerusform>يُخفي المرشح %Ln تكرارًا</numerusform>
            <numerusform>يُخفي المرشح %Ln تكرار</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation>لم يُعثر على تكرارات</translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>لم يُعثر على ملفات مكررة</numerusform>
            <numerusform>عُثر على ملف مكرر واحد</numerusform>
            <numerusform>عُثر على ملفين مكررين</numerusform>
            <numerusform>عُثر على %Ln ملفات مكررة</numerusform>
            <numerusform>عُثر على %Ln ملفًا مكررًا</numerusform>
            <numerusform>عُثر على %Ln ملف مكرر</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation>أظهر</translation>
    </message>
</context>
</TS>
