#pragma once

/// Ends the program as closing its window does when the system or a terminal asks for it, by
/// SIGTERM or SIGINT: connections are closed and the exit status is 0. Linux alone has them.
namespace ClosingSignals {

/// Takes note of the signals from now on, instead of dying of them. Call it first of all.
void catchThem();

/// Once there is an application: closes all windows, open boxes first and without an answer, as
/// soon as a signal was caught. An external program that runs then is ended, because the window
/// stands still for it, up to minutes, and a system that shuts down kills what takes so long. The
/// records do not need it: what a tool reads is not saved yet.
void closeWindowsOnThem();

} // namespace ClosingSignals
