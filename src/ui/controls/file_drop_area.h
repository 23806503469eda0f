#pragma once

#include <QList>
#include <QQuickItem>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// Accepts drops of files and folders and ignores all others, such as web links and text. Drops are accepted
/// as copies, whatever the source offers.
class FileDropArea : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Whether files are being dragged over the area.
    Q_PROPERTY(bool containsDrag READ containsDrag NOTIFY containsDragChanged)

public:
    explicit FileDropArea(QQuickItem *parent = nullptr);

    [[nodiscard]] bool containsDrag() const { return m_containsDrag; }

Q_SIGNALS:
    void containsDragChanged();
    /// @param urls all that was dropped together; at least one of them is a file URL
    void filesDropped(const QList<QUrl> &urls);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setContainsDrag(bool containsDrag);

    bool m_containsDrag = false;
};

} // namespace sonavo
