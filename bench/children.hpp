// The measurements that run in a process of their own. Each tells its results on standard output
// and returns the process's exit code.
#pragma once

namespace vellix::bench {

// The kinds of actions, each of which the next two measure in a process of its own:
//   KIND      which, from 0; none for all of them
inline constexpr int kKinds = 7;
int actionsChild(int argc, char** argv);
int demoActionsChild(int argc, char** argv);
int openingChild(int argc, char** argv);
int canvasChild(int argc, char** argv);
int decodeChild();
int listChild(int argc, char** argv);
int pasteChild(int argc, char** argv);
int scrollChild(int argc, char** argv);
int pollChild(int argc, char** argv);
int pagesChild(int argc, char** argv);
int visitsChild(int argc, char** argv);
int soakChild(int argc, char** argv);

// Shows the board as the program does, and tells when it and a page were first painted.
//   START     the moment, on wallTime's clock, when the process was asked for
//   SECONDS   how long to look on at the idle window; 0 for not at all
//   SCENE     null, or a file to be written: what is shown, for the bare program
int launchChild(int argc, char** argv, double start, double seconds, const char* scene);

// What a board with many tickets means.
inline constexpr int kManyTickets = 10'000;

}  // namespace vellix::bench
