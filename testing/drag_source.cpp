#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QUrl>

#include <cstdio>

namespace {

/// A small window in a corner of the screen, from which files can be dragged into other programs.
class DragSource final : public QRasterWindow
{
public:
    explicit DragSource(const QList<QUrl> &urls)
        : m_urls(urls)
    {
        // Where it is to be is not for a window manager to say.
        setFlags(Qt::BypassWindowManagerHint);
        setGeometry(0, 0, 40, 40);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(QRect(QPoint(), size()), Qt::darkCyan);
        if (!m_isReady)
            std::puts("ready");
        std::fflush(stdout);
        m_isReady = true;
    }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (m_isDragging || (event->buttons() & Qt::LeftButton) == 0)
            return;
        m_isDragging = true;
        auto *data = new QMimeData;
        data->setUrls(m_urls);
        auto *drag = new QDrag(this);
        drag->setMimeData(data);
        // It is gone when the other program has taken the data.
        connect(drag, &QObject::destroyed, qApp, [this] { QCoreApplication::exit(m_isCopied ? 0 : 1); });
        m_isCopied = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction) == Qt::CopyAction;
    }

private:
    QList<QUrl> m_urls;
    bool m_isReady = false;
    bool m_isDragging = false;
    bool m_isCopied = false;
};

} // namespace

/// Lets the files that the command line names be dragged out of its window, once. Says "ready" when the
/// window is there. Its exit status is 0 when they were dropped to be copied, which leaves them where they
/// are.
int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    QList<QUrl> urls;
    for (const QString &path : QCoreApplication::arguments().mid(1))
        urls.append(QUrl::fromLocalFile(path));
    DragSource source(urls);
    source.show();
    return QGuiApplication::exec();
}
