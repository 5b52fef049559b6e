// The program as a process without a window: makes everything, runs the event loop, returns the exit code.
#pragma once

struct CommandLine;

/// 0 after a stop, 1 when another copy runs, 3 when the notice has not been accepted.
[[nodiscard]] int RunHeadless(int& argc, char** argv, const CommandLine& commandLine);
