#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <string>
#include <vector>

#include "output/system.h"

namespace zelhost {
namespace {

volatile std::sig_atomic_t isInterrupted = 0;

void NoteInterrupt(int) { isInterrupted = 1; }

// The null device is a device with characters, too, so the console itself is asked.
bool IsConsole(DWORD which) {
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(which), &mode) != 0;
}

// Colours and positions by sequences of characters.
void TakeSequences(DWORD which) {
  DWORD mode = 0;
  HANDLE const console = ::GetStdHandle(which);
  if (!::GetConsoleMode(console, &mode)) return;
  ::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

std::string Utf8Of(wchar_t const* text) {
  int const size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow.data(), size, nullptr, nullptr);
  narrow.resize(narrow.size() - 1);
  return narrow;
}

}  // namespace

bool OutputIsTerminal() { return IsConsole(STD_OUTPUT_HANDLE); }

bool ErrorIsTerminal() { return IsConsole(STD_ERROR_HANDLE); }

int TerminalColumns() {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &info)) return 0;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

LetterWidths::LetterWidths() : before_(nullptr) {}

LetterWidths::~LetterWidths() = default;

// The system has no table of widths.
int LetterWidths::Of(char32_t /*letter*/) const { return before_ == nullptr ? 1 : -1; }

// The handler of the system takes itself away before it calls the function.
InterruptWatch::InterruptWatch() {
  isInterrupted = 0;
  before_ = std::signal(SIGINT, NoteInterrupt);
  if (before_ == SIG_IGN) std::signal(SIGINT, before_);
}

InterruptWatch::~InterruptWatch() { std::signal(SIGINT, before_); }

bool InterruptWatch::IsInterrupted() const { return isInterrupted != 0; }

void PrepareStreams() {
  for (std::FILE* const stream : {stdin, stdout, stderr}) ::_setmode(::_fileno(stream), _O_BINARY);
  ::SetConsoleOutputCP(CP_UTF8);
  TakeSequences(STD_OUTPUT_HANDLE);
  TakeSequences(STD_ERROR_HANDLE);
}

char** CommandWords(int& count, char** words) {
  static std::vector<std::string> texts;
  static std::vector<char*> pointers;
  int number = 0;
  wchar_t** const wide = ::CommandLineToArgvW(::GetCommandLineW(), &number);
  if (wide == nullptr) return words;
  for (int i = 0; i < number; ++i) texts.push_back(Utf8Of(wide[i]));
  ::LocalFree(wide);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  count = number;
  return pointers.data();
}

// Programs end with a status here.
void EndAsByClosedPipe() {}

void EndAsByInterrupt() {}

}  // namespace zelhost
