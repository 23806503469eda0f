#include "ui/controls/file_drop_area.h"

#include <QMimeData>

#include <algorithm>

namespace sonavo {
namespace {

bool hasFiles(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl &url) { return url.isLocalFile(); });
}

/// A program that is told that its files are moved may delete them. Many go by what they are told before the
/// drop, so that this is said at every step.
void acceptAsCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

FileDropArea::FileDropArea(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemAcceptsDrops);
}

void FileDropArea::dragEnterEvent(QDragEnterEvent *event)
{
    if (!hasFiles(*event->mimeData())) {
        event->ignore();
        return;
    }
    acceptAsCopy(*event);
    setContainsDrag(true);
}

void FileDropArea::dragMoveEvent(QDragMoveEvent *event)
{
    acceptAsCopy(*event);
}

void FileDropArea::dragLeaveEvent(QDragLeaveEvent *)
{
    setContainsDrag(false);
}

void FileDropArea::dropEvent(QDropEvent *event)
{
    setContainsDrag(false);
    acceptAsCopy(*event);
    Q_EMIT filesDropped(event->mimeData()->urls());
}

void FileDropArea::setContainsDrag(bool containsDrag)
{
    if (m_containsDrag == containsDrag)
        return;
    m_containsDrag = containsDrag;
    Q_EMIT containsDragChanged();
}

} // namespace sonavo
