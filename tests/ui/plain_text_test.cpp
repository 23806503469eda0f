#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/open_watch.h"
#include "testing/private_home.h"
#include "ui/ui_test.h"

#include <QSet>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using testing::IsEmpty;

/// As rich text it opens the file, and never comes back if that is a named pipe.
const QString MARKUP = u"<img src=\"file:picture\">"_s;
const QString FOLDER = u"Folder of "_s + MARKUP;
const QString LONG_NAME = MARKUP + u" - long enough to be elided"_s.repeated(5) + u".flac"_s;

/// The window over songs and folders with names that are markup.
class PlainTextTest : public UiTest
{
protected:
    PlainTextTest()
    {
        // A name holds no slash, so that the markup can only name a file of the current folder.
        QDir::setCurrent(m_music.path());
        writeFile(m_music.pathOf(u"picture"_s), "no picture");
        m_picture = std::make_unique<OpenWatch>(m_music.pathOf(u"picture"_s));
        for (const QString &name : {FOLDER + u'/' + LONG_NAME, LONG_NAME})
            m_music.addSong(name);
        scan(m_music.urls());
        EXPECT_TRUE(waitForText(u"Group of 2 songs"_s));
    }
    ~PlainTextTest() override { QDir::setCurrent(m_previousFolder); }
    Q_DISABLE_COPY_MOVE(PlainTextTest)

    [[nodiscard]] QPoint placeOfText(const QString &text) const
    {
        for (const QQuickItem *item : textItems()) {
            if (item->property("text") == text)
                return rectOf(item).center();
        }
        throw std::runtime_error("no such text: " + text.toStdString());
    }

    /// The texts of the window that could be rich text, whether they are on screen or not.
    [[nodiscard]] std::vector<std::string> richTexts() const
    {
        std::vector<std::string> rich;
        QSet<const QObject *> seen;
        std::vector<const QObject *> objects{window, window->contentItem()};
        while (!objects.empty()) {
            const QObject *object = objects.back();
            objects.pop_back();
            if (seen.contains(object))
                continue;
            seen.insert(object);
            const QVariant format = object->property("textFormat");
            if (format.isValid() && format.toInt() != Qt::PlainText)
                rich.push_back('"' + object->property("text").toString().toStdString() + '"');
            objects.insert(objects.end(), object->children().begin(), object->children().end());
            if (const auto *item = qobject_cast<const QQuickItem *>(object)) {
                const QList<QQuickItem *> items = item->childItems();
                objects.insert(objects.end(), items.begin(), items.end());
            }
        }
        return rich;
    }

    const PrivateHome m_home;
    const MusicFolder m_music;
    std::unique_ptr<OpenWatch> m_picture;

private:
    const QString m_previousFolder = QDir::currentPath();
};

TEST_F(PlainTextTest, ShowsNamesAsTheyAreWritten)
{
    const QString path = m_music.pathOf(FOLDER + u'/' + LONG_NAME);
    for (const auto &[cell, toolTip] : {std::pair(FOLDER, path), std::pair(LONG_NAME, LONG_NAME)}) {
        const QPoint place = placeOfText(cell);
        QTest::mouseMove(window, place);
        QTest::qWait(20);
        QTest::mouseMove(window, place + QPoint(1, 0));
        const auto isShown = [this, &text = toolTip] { return find(QAccessible::ToolTip, text) != nullptr; };
        EXPECT_TRUE(waitFor(isShown)) << toolTip.toStdString();
        EXPECT_THAT(richTexts(), IsEmpty());
    }
    QTest::mouseClick(window, Qt::RightButton, {}, placeOfText(FOLDER));
    ASSERT_TRUE(waitForText(u"Copy Path"_s));
    EXPECT_THAT(richTexts(), IsEmpty());
    press(Qt::Key_Escape);
    session.deleteSong(session.songs().constLast());
    EXPECT_TRUE(waitForText(u"Moved to Trash: "_s + LONG_NAME));
    const QUrl song = m_music.urlOf(LONG_NAME);
    EXPECT_FALSE(session.importDroppedItems(QList<QUrl>(10'001, song)));
    EXPECT_FALSE(session.importDroppedItems(QList<QUrl>(500'001, song)));
    EXPECT_THAT(richTexts(), IsEmpty());
    EXPECT_FALSE(m_picture->sawOpening());
}

} // namespace
} // namespace sonavo
