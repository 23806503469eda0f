#include "actions/unfinished_moves.h"

namespace sonavo {

void cleanUpUnfinishedMoves(const QString &)
{}

} // namespace sonavo
