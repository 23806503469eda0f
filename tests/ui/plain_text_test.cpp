#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/open_watch.h"
#include "testing/private_home.h"
#include "ui/ui_test.h"

#include <QScopeGuard>
#include <QSet>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using testing::IsEmpty;

/// As rich text it opens the file, and never comes back if that is a named pipe.
const QString MARKUP = u"<img src=\"file:picture\">"_s;
const QString FOLDER = u"Folder of "_s + MARKUP;
const QString LONG_NAME = MARKUP + u" - long enough to be elided"_s.repeated(5) + u".flac"_s;

void collectObjects(const QObject *object, QSet<const QObject *> &objects)
{
    if (objects.contains(object))
        return;
    objects.insert(object);
    for (const QObject *child : object->children())
        collectObjects(child, objects);
    if (const auto *item = qobject_cast<const QQuickItem *>(object)) {
        for (const QQuickItem *child : item->childItems())
            collectObjects(child, objects);
    }
}

class PlainTextTest : public UiTest
{
protected:
    /// The texts of the window that could be rich text, whether they are on screen or not.
    [[nodiscard]] std::vector<std::string> richTexts() const
    {
        QSet<const QObject *> objects;
        collectObjects(window, objects);
        collectObjects(window->contentItem(), objects);
        std::vector<std::string> rich;
        for (const QObject *object : objects) {
            const QVariant format = object->property("textFormat");
            if (format.isValid() && format.toInt() != Qt::PlainText)
                rich.push_back('"' + object->property("text").toString().toStdString() + '"');
        }
        return rich;
    }
};

TEST_F(PlainTextTest, ShowsNamesAsTheyAreWritten)
{
    const PrivateHome home;
    const MusicFolder music;
    // A name holds no slash, so that the markup can only name a file of the current folder.
    const auto goBack = qScopeGuard([folder = QDir::currentPath()] { QDir::setCurrent(folder); });
    QDir::setCurrent(music.path());
    writeFile(music.pathOf(u"picture"_s), "no picture");
    OpenWatch picture(music.pathOf(u"picture"_s));
    for (const QString &name : {FOLDER + u'/' + LONG_NAME, LONG_NAME})
        music.addSong(name);
    scan(music.urls());
    ASSERT_TRUE(waitForText(u"Group of 2 songs"_s));

    const QString path = music.pathOf(FOLDER + u'/' + LONG_NAME);
    const auto toolTip = [this] {
        for (const QQuickItem *item : textItems()) {
            const QString text = item->property("text").toString();
            if (text.contains(u" bytes)\n"_s) && find(QAccessible::ToolTip, text))
                return text;
        }
        return QString();
    };
    QPoint place;
    for (const QQuickItem *item : textItems()) {
        if (item->property("text").toString().endsWith(u'/' + FOLDER))
            place = rectOf(item).center();
    }
    QTest::mouseMove(window, place);
    EXPECT_TRUE(waitFor([&] { return !toolTip().isEmpty(); }));
    EXPECT_THAT(richTexts(), IsEmpty());
    const QString changed = QFileInfo(path).lastModified().toString(u"yyyy-MM-dd HH:mm"_s);
    EXPECT_EQ(
        toolTip().toStdString(),
        (path + u"\n22 KB (21,663 bytes)\n0:01, 91 kbit/s, lossless\nChanged "_s + changed).toStdString());
    QTest::mouseClick(window, Qt::RightButton, {}, place);
    ASSERT_TRUE(waitForText(u"Copy Path"_s));
    EXPECT_THAT(richTexts(), IsEmpty());
    press(Qt::Key_Escape);
    session.deleteSong(session.songs().constLast());
    EXPECT_TRUE(waitForText(u"Moved to Trash: "_s + LONG_NAME));
    const QUrl song = music.urlOf(LONG_NAME);
    EXPECT_FALSE(session.importDroppedItems(QList<QUrl>(10'001, song)));
    ASSERT_TRUE(waitFor([this] { return session.showLimitWarning(); }));
    EXPECT_FALSE(session.importDroppedItems(QList<QUrl>(500'001, song)));
    EXPECT_THAT(richTexts(), IsEmpty());
    EXPECT_FALSE(picture.sawOpening());
}

TEST_F(PlainTextTest, ShowsControlsInNamesAndEveryNameBesideItsBadge)
{
    const PrivateHome home;
    const MusicFolder music;
    for (const QString &folder : {u"a"_s, u"b"_s})
        music.addSong(folder + u"/\u05d0\u05d1 - A\nB\u202egpj.flac"_s);
    scan(music.urls());
    const QString shown = u"\u05d0\u05d1 - A\\nB\\u202egpj.flac"_s;
    ASSERT_TRUE(waitForText(shown));
    for (const QQuickItem *item : textItems()) {
        EXPECT_TRUE(item->property("text") != shown ||
                    item->property("effectiveHorizontalAlignment").toInt() == Qt::AlignLeft);
    }
    EXPECT_NE(find(QAccessible::ListItem, u"Original, %1, FLAC, 0:01, 22 KB, a"_s.arg(shown)), nullptr);
    session.togglePlayback(session.songs().constFirst());
    session.cleanupAll();
    EXPECT_TRUE(waitForText(u"1 file moved to the Trash \u2022 22 KB"_s));
    EXPECT_TRUE(shows(shown)) << "the song that plays";
    session.deleteSong(session.songs().constFirst());
    EXPECT_TRUE(waitForText(u"Moved to Trash: "_s + shown));
}

} // namespace
} // namespace sonavo
