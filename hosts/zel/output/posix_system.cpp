#include <locale.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <wchar.h>

#include "output/system.h"

namespace zelhost {
namespace {

// The locale that knows the widths of all letters; null if the system does not have one.
locale_t Letters() {
  static locale_t const letters = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return letters;
}

volatile std::sig_atomic_t isInterrupted = 0;

void NoteInterrupt(int) { isInterrupted = 1; }

void EndBy(int signal) {
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace

bool OutputIsTerminal() { return ::isatty(STDOUT_FILENO) == 1; }

bool ErrorIsTerminal() { return ::isatty(STDERR_FILENO) == 1; }

int TerminalColumns() {
  struct winsize size {};
  return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

LetterWidths::LetterWidths() : before_(Letters() != nullptr ? ::uselocale(Letters()) : nullptr) {}

LetterWidths::~LetterWidths() {
  if (before_ != nullptr) ::uselocale(static_cast<locale_t>(before_));
}

int LetterWidths::Of(char32_t letter) const {
  return before_ == nullptr ? 1 : ::wcwidth(static_cast<wchar_t>(letter));
}

InterruptWatch::InterruptWatch() {
  isInterrupted = 0;
  struct sigaction action {};
  struct sigaction before {};
  action.sa_handler = NoteInterrupt;
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  ::sigemptyset(&action.sa_mask);
  ::sigaction(SIGINT, &action, &before);
  before_ = before.sa_handler;
  if (before_ == SIG_IGN) ::sigaction(SIGINT, &before, nullptr);
}

InterruptWatch::~InterruptWatch() {
  struct sigaction before {};
  before.sa_handler = before_;
  ::sigemptyset(&before.sa_mask);
  ::sigaction(SIGINT, &before, nullptr);
}

bool InterruptWatch::IsInterrupted() const { return isInterrupted != 0; }

void PrepareStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

char** CommandWords(int& /*count*/, char** words) { return words; }

void EndAsByClosedPipe() { EndBy(SIGPIPE); }

void EndAsByInterrupt() { EndBy(SIGINT); }

}  // namespace zelhost
