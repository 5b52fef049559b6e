// The program as a process with a window: makes everything, runs the event loop, returns the exit code.
#pragma once

struct CommandLine;

/// 0 after a close, 1 when another copy runs, 3 when the notice was declined.
[[nodiscard]] int RunWindow(int& argc, char** argv, const CommandLine& commandLine);
