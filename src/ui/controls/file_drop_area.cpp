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

/// A source may delete its files if it is told that they were moved. Many sources use the action of an
/// earlier event than the drop, so every event sets it.
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
