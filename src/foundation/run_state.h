// Foundation: what the whole program stands on and that knows nothing of traffic.
// What lives for the run outside the traffic.
#pragma once

namespace vantor {

/// Puts all of it into its state at the start of a program: the ring of actions, whose entries go to the log when it is
/// full; the log's path; settings; words of the locale; times of the bar and of the pumps; the files that have their
/// backup; clock, host and error reporter, which are then the system's, the silent one and a message box. The chosen
/// printer lives as long as the application (platform/printer_choice), the traffic has an owner of its own.
void startRun();

} // namespace vantor
