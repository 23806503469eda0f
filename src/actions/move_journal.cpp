#include "actions/move_journal.h"

#include <QStandardPaths>

namespace sonavo {

QString moveJournalFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}

} // namespace sonavo
