#include <QClipboard>
#include <QGuiApplication>

#include <cstdio>

/// Prints the text that is on the clipboard of the desktop, as another program gets it.
int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    std::fputs(QGuiApplication::clipboard()->text().toUtf8().constData(), stdout);
    return 0;
}
