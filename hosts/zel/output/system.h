// What zel needs of the system: terminals, signals and the words of its command line.
#pragma once

#include <csignal>
#include <cstddef>

namespace zelhost {

bool OutputIsTerminal();
bool ErrorIsTerminal();
// The width of the terminal of standard output; 0 if it does not say.
int TerminalColumns();

// The columns that letters take on a terminal, whatever the locale of the user is.
class LetterWidths {
 public:
  LetterWidths();
  LetterWidths(LetterWidths const&) = delete;
  LetterWidths& operator=(LetterWidths const&) = delete;
  ~LetterWidths();

  // -1 for what is not printed.
  int Of(char32_t letter) const;

 private:
  void* before_;
};

// Whether Ctrl-C was pressed while this object exists; a second one ends the program at once. A
// program that was started to ignore Ctrl-C goes on doing so.
class InterruptWatch {
 public:
  InterruptWatch();
  InterruptWatch(InterruptWatch const&) = delete;
  InterruptWatch& operator=(InterruptWatch const&) = delete;
  ~InterruptWatch();

  bool IsInterrupted() const;

 private:
  void (*before_)(int);
};

// At the start of the program: writing to a pipe without a reader, or to a file at its size limit,
// is an error of the call, and what is written stays as it is.
void PrepareStreams();
// The words of the command line in UTF-8, and their number.
char** CommandWords(int& count, char** words);
// Ends as the system ends a program that writes to a closed pipe, or at Ctrl-C; returns if it does
// not do that.
void EndAsByClosedPipe();
void EndAsByInterrupt();

}  // namespace zelhost
