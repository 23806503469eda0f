#include "desktop/trash.h"

#include <QFile>
namespace sonavo {
std::optional<Failure> moveToTrash(const QString &path)
{
    QFile f(path);
    if (f.moveToTrash())
        return std::nullopt;
    return Failure{f.errorString()};
}
} // namespace sonavo
