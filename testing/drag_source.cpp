#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QRasterWindow>
#include <QUrl>

#include <cstdio>

namespace {

/// A small window in the corner of the screen, from which a file can be dragged into other programs, once.
class DragSource final : public QRasterWindow
{
public:
    DragSource()
    {
        // The window manager would put it elsewhere.
        setFlags(Qt::BypassWindowManagerHint);
        setGeometry(0, 0, 40, 40);
    }

protected:
    void exposeEvent(QExposeEvent *) override
    {
        std::puts("ready");
        std::fflush(stdout);
    }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (event->buttons() != Qt::LeftButton)
            return;
        auto *data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(QCoreApplication::arguments().at(1))});
        auto *drag = new QDrag(this);
        drag->setMimeData(data);
        // It is gone when the other program has taken the data.
        connect(drag, &QObject::destroyed, qApp, [this] { QCoreApplication::exit(m_isCopied ? 0 : 1); });
        m_isCopied = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction) == Qt::CopyAction;
    }

private:
    bool m_isCopied = false;
};

} // namespace

/// Lets the file on the command line be dragged out of its window. Says "ready" when the window is there. Its
/// exit status is 0 when the file was dropped to be copied, which leaves it where it is.
int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    DragSource source;
    source.show();
    return QGuiApplication::exec();
}
