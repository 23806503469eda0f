#include "language/language.h"
#include "model/visible_controls.h"
#include "session/clean_up_text.h"
#include "session/file_job.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "tests/ui/ui_test.h"

#include <QRegularExpression>
#include <QSemaphore>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

/// What the program is given in its languages, and what the window shows of it.
struct UsedLanguage
{
    explicit UsedLanguage(const QString &language) { useLanguage(QLocale(language)); }
    ~UsedLanguage() { useEnglish(); }
    Q_DISABLE_COPY_MOVE(UsedLanguage)
};

class InLanguage : public testing::WithParamInterface<QString>, private UsedLanguage, public UiTest
{
protected:
    InLanguage()
        : UsedLanguage(GetParam())
    {}

    /// In both sizes; what names files may be elided.
    void expectLegible(const QString &screen) const
    {
        for (const QSize size : {QSize(900, 636), QSize(1440, 936)}) {
            window->resize(size);
            QTest::qWait(20);
            window->grabWindow(); // lays everything out
            SCOPED_TRACE(screen.toStdString() + " " + std::to_string(size.width()));
            for (const QQuickItem *text : textItems()) {
                const QString shown = text->property("text").toString();
                if (!shown.contains(u'/') && !shown.contains(u".flac") && !shown.contains(u" \u2013 "))
                    UiTest::expectLegible(*text);
            }
        }
    }
    /// The menus of the menu bar, and the sheet that the last entry of the last one opens.
    void expectMenusLegible()
    {
        QStringList menus;
        for (const QAccessibleInterface *node : accessibleNodes()) {
            if (node->role() == QAccessible::MenuItem)
                menus.append(node->text(QAccessible::Name));
        }
        EXPECT_EQ(menus.size(), 4);
        for (const QString &menu : menus) {
            activate(find(QAccessible::MenuItem, menu));
            QTest::qWait(100);
            expectLegible(menu);
            press(Qt::Key_Escape);
        }
        activate(find(QAccessible::MenuItem, menus.constLast()));
        QTest::qWait(100);
        press(Qt::Key_Up);
        press(Qt::Key_Return);
        QTest::qWait(250);
        expectLegible(u"about"_s);
        press(Qt::Key_Escape);
        QTest::qWait(200);
    }
    /// As in the walk of very many files.
    void expectFoundFilesLegible() const
    {
        const QString step =
            QCoreApplication::translate("CircularProgressView", "of this step", "follows a percentage");
        for (QQuickItem *text : textItems()) {
            if (text->property("text") == step)
                text->setProperty("text", QCoreApplication::translate("CircularProgressView",
                                                                      "%Ln files found", "", 400'000));
        }
        expectLegible(u"found files"_s);
    }
    /// With a clean-up that waits, then stops.
    void expectCleanUpLegible()
    {
        QSemaphore isLookedAt;
        fileJobThread().start([&] { isLookedAt.acquire(); });
        session.cleanupAll();
        EXPECT_TRUE(waitFor([this] { return session.showCleanUpProgress(); }));
        QQuickItem *stop = window->activeFocusItem();
        QQuickItem *timeLeft = stop->parentItem()->childItems().constFirst();
        for (const int minutes : {1, 58, 100 * 60}) {
            timeLeft->setProperty("text", timeLeftText(std::chrono::minutes(minutes), 1, 2));
            expectLegible(timeLeft->property("text").toString());
        }
        session.stopCleanUp();
        expectLegible(stop->property("text").toString());
        isLookedAt.release();
        EXPECT_TRUE(waitFor([this] { return !session.isCleaningUp(); }));
    }
    /// As for a library of very many songs.
    void expectLargeNumbersLegible() const
    {
        static const QRegularExpression number(u"\\d+"_s, QRegularExpression::UseUnicodePropertiesOption);
        constexpr int TOOLBAR_END = 80;
        for (QQuickItem *text : textItems()) {
            const QString shown = text->property("text").toString();
            if (rectOf(text).bottom() < TOOLBAR_END)
                text->setProperty("text", QString(shown).replace(number, u"123.456"_s));
        }
        expectLegible(u"large numbers"_s);
    }
};

TEST_P(InLanguage, EveryTextFits)
{
    const PrivateHome home;
    const MusicFolder music; // so few groups that no row is cut off
    music.addGroups({2, 3});
    for (const QString &name :
         {u"Albums/Ada Finch - Glass Road.flac"_s, u"Phone/Ada Finch - Glass Road (Demo).flac"_s})
        ASSERT_TRUE(
            QFile::copy(SAMPLES.first().toLocalFile() + u'/' + name, music.pathOf(name.section(u'/', 1))));
    expectLegible(u"welcome"_s);
    const QUrl song = SAMPLES.first().resolved(QUrl(u"none.mp3"_s));
    session.importDroppedItems(QList<QUrl>(10'001, song));
    EXPECT_TRUE(waitFor([this] { return session.showLimitWarning(); }));
    QTest::qWait(200);
    expectLegible(u"warning"_s);
    session.clearAll();
    session.importDroppedItems(QList<QUrl>(500'001, song));
    EXPECT_TRUE(waitFor([this] { return session.showAlert(); }));
    QTest::qWait(200);
    expectLegible(u"alert"_s);
    session.clearAll();
    QTest::qWait(200);

    session.startScan(music.urls());
    QString latest;
    EXPECT_TRUE(goOnUntil([&] {
        if (session.isScanning() && session.scanMessage() != latest) {
            EXPECT_TRUE(waitFor([&] { return !session.isScanning() || shows(session.scanMessage()); }));
            latest = session.scanMessage();
            expectLegible(latest);
            expectFoundFilesLegible();
        }
        return !session.isScanning();
    }));
    expectLegible(u"results"_s);
    expectCleanUpLegible();
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down}) {
        press(key);
        press(Qt::Key_Menu);
        QTest::qWait(100);
        expectLegible(u"menu of a row"_s);
        press(Qt::Key_Escape);
    }
    expectMenusLegible();
    press(Qt::Key_F1);
    QTest::qWait(250);
    expectLegible(u"keys"_s);
    press(Qt::Key_Escape);
    QTest::qWait(200);
    session.findMore();
    EXPECT_TRUE(waitFor([this] { return !session.isCleaningUp() && session.showToast(); }));
    QTest::qWait(700); // until the toast rests
    expectLegible(u"further result"_s);
    session.openItems(music.urls());
    QTest::qWait(200);
    expectLegible(u"question"_s);
    session.declineOpenedItems();
    ASSERT_TRUE(QFile::remove(session.duplicateGroups().constFirst().original.path));
    session.togglePlayback(session.duplicateGroups().constLast().original);
    session.cleanupAll();
    EXPECT_TRUE(waitFor([this] { return session.cleanUpFailureCount() > 0 && session.showToast(); }));
    QTest::qWait(700);
    expectLegible(u"summary"_s);
    expectLargeNumbersLegible();
}

TEST(InArabic, TheWindowIsMirrored)
{
    // A fixture would make its window before the language is there.
    const PrivateHome home;
    const UsedLanguage arabic(u"ar"_s);
    const MusicFolder music;
    music.addGroups({2});
    class Window : public UiTest
    {
    public:
        void TestBody() override {}
        void check(const MusicFolder &music)
        {
            scan(music.urls());
            ASSERT_TRUE(goOnUntil([this] { return session.duplicateCount() == 1; }));
            const QRect name = rectOf(itemWith(u"Artist0 - Title0.flac"_s));
            const QRect folder = rectOf(itemWith(pathInText(u"0"_s)));
            EXPECT_LT(folder.right(), name.left());
            EXPECT_EQ(itemWith(u"Artist0 - Title0.flac"_s)->property("effectiveHorizontalAlignment").toInt(),
                      Qt::AlignRight);
            // Playback follows the direction of the window: its start is on the right.
            session.togglePlayback(session.songs().constFirst());
            settle();
            desktop.calls.clear();
            for (const int x : {window->width() - 60, 60})
                QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(x, name.center().y()));
            EXPECT_THAT(desktop.calls,
                        testing::ElementsAre(testing::EndsWith("seek 0"), testing::EndsWith("seek 1")));
            QTest::mouseMove(window, QPoint(1, 1)); // nothing of the next window is below it
        }
        [[nodiscard]] const QQuickItem *itemWith(const QString &text) const
        {
            for (const QQuickItem *item : textItems()) {
                if (item->property("text") == text)
                    return item;
            }
            throw std::runtime_error("not shown: " + text.toStdString());
        }
    };
    Window().check(music);
}

INSTANTIATE_TEST_SUITE_P(All, InLanguage, testing::ValuesIn(languages()),
                         [](const auto &language) { return language.param.toStdString(); });

} // namespace
} // namespace sonavo
