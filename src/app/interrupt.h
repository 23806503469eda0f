#pragma once

namespace sonavo {

/// Makes Ctrl-C (SIGINT) take the progress line off the terminal and end the program at once with the exit
/// status of an interrupted one, whatever it is doing: a report changes nothing that would have to be put in
/// order. Where the caller had Ctrl-C ignored, it stays ignored.
void endAtOnceOnInterrupt();

} // namespace sonavo
