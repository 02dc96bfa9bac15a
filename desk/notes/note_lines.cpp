#include "desk/notes/note_lines.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "desk/notes/utf8.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kBlanks[] = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
  std::size_t const first = std::min(text.find_first_not_of(kBlanks), text.size());
  text.remove_prefix(first);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

struct KindWord {
  NoteKind kind;
  std::string_view word;
};
constexpr KindWord kWords[] = {{NoteKind::kReference, "ref"},
                               {NoteKind::kEquation, "equation"},
                               {NoteKind::kParameter, "parameter"}};

// True for `least` to `most` words of letters, digits and "_".
bool HasNames(std::string_view key, std::size_t least, std::size_t most) {
  constexpr std::string_view kLetters =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  std::size_t words = 0;
  while (!key.empty()) {
    std::size_t const end = std::min(key.find_first_not_of(kLetters), key.size());
    if (end == 0 || (end < key.size() && key[end] != ' ')) return false;
    ++words;
    key.remove_prefix(std::min(end + 1, key.size()));
  }
  return words >= least && words <= most;
}

bool IsCode(std::string_view key) {
  constexpr std::size_t kMostDigits = 9;
  return !key.empty() && key.size() <= kMostDigits && key.front() != '0' &&
         key.find_first_not_of("0123456789") == std::string_view::npos;
}

// The note of a line; nothing for other text.
std::optional<Note> NoteOf(std::string_view line) {
  std::size_t const colon = line.find(": ");
  if (colon == std::string_view::npos) return std::nullopt;
  std::string_view head = Trimmed(line.substr(0, colon));
  std::string_view const text = Trimmed(line.substr(colon + 1));
  if (text.empty()) return std::nullopt;
  std::size_t const end = std::min(head.find(' '), head.size());
  std::string const word = LowerCase(std::string(head.substr(0, end)));
  auto const kind = std::find_if(std::begin(kWords), std::end(kWords),
                                 [&](KindWord const& one) { return one.word == word; });
  if (kind == std::end(kWords)) return std::nullopt;
  head = Trimmed(head.substr(end));
  Note note{kind->kind, "", "", std::string(text)};
  std::size_t const bracket = head.find('[');
  if (note.kind == NoteKind::kParameter && bracket != std::string_view::npos) {
    if (head.back() != ']') return std::nullopt;
    note.unit = Trimmed(head.substr(bracket + 1, head.size() - bracket - 2));
    head = Trimmed(head.substr(0, bracket));
  }
  note.key = head;
  bool const isSound = note.kind == NoteKind::kReference   ? IsCode(head)
                       : note.kind == NoteKind::kParameter ? HasNames(head, 1, 2)
                                                           : HasNames(head, 0, 1);
  return isSound ? std::optional(std::move(note)) : std::nullopt;
}

std::string ToLine(Note const& note) {
  return NameOf(note) + (note.unit.empty() ? "" : " [" + note.unit + "]") + ": " + note.text;
}

bool IsOf(Note const& note, NoteKind kind, std::string const& key) {
  return note.kind == kind && LowerCase(note.key) == LowerCase(key);
}

}  // namespace

std::string NameOf(Note const& note) {
  auto const kind = std::find_if(std::begin(kWords), std::end(kWords),
                                 [&](KindWord const& one) { return one.kind == note.kind; });
  return std::string(kind->word) + (note.key.empty() ? "" : " " + note.key);
}

std::string DescriptionOf(Note const& note) {
  return note.text + (note.unit.empty() ? "" : " [" + note.unit + "]");
}

NoteLines::Line NoteLines::LineOf(std::string text) {
  Line line;
  std::optional<Note> note = NoteOf(text);
  line.text = std::move(text);
  line.isNote = note.has_value();
  if (note) line.note = std::move(*note);
  return line;
}

NoteLines::NoteLines(std::string const& memo) {
  for (std::size_t at = 0; at < memo.size();) {
    std::size_t const end = std::min(memo.find('\n', at), memo.size() - 1) + 1;
    lines_.push_back(LineOf(memo.substr(at, end - at)));
    at = end;
  }
}

Note const* NoteLines::Find(NoteKind kind, std::string const& key) const {
  for (Line const& line : lines_) {
    if (line.isNote && IsOf(line.note, kind, key)) return &line.note;
  }
  return nullptr;
}

std::vector<Note> NoteLines::All(NoteKind kind) const {
  std::vector<Note> all;
  for (Line const& line : lines_) {
    if (line.isNote && line.note.kind == kind) all.push_back(line.note);
  }
  return all;
}

void NoteLines::Set(Note const& note) {
  for (Line& line : lines_) {
    if (!line.isNote || !IsOf(line.note, note.kind, note.key)) continue;
    bool const hasEnd = line.text.back() == '\n';
    line = LineOf(ToLine(note) + (hasEnd ? "\n" : ""));
    return;
  }
  if (!lines_.empty() && lines_.back().text.back() != '\n') lines_.back().text += '\n';
  lines_.push_back(LineOf(ToLine(note)));
}

bool NoteLines::Remove(NoteKind kind, std::string const& key) {
  bool const hadEnd = !lines_.empty() && lines_.back().text.back() == '\n';
  auto const rest = std::remove_if(lines_.begin(), lines_.end(), [&](Line const& line) {
    return line.isNote && IsOf(line.note, kind, key);
  });
  if (rest == lines_.end()) return false;
  lines_.erase(rest, lines_.end());
  // The line end that was added with a last line is removed with it.
  if (!hadEnd && !lines_.empty() && lines_.back().text.back() == '\n') {
    lines_.back().text.pop_back();
    if (lines_.back().text.empty()) lines_.pop_back();
  }
  return true;
}

std::size_t NoteLines::ReplaceText(std::string const& text) {
  NoteLines fresh(text);
  std::size_t kept = 0;
  for (Line& line : lines_) {
    if (!line.isNote || fresh.Find(line.note.kind, line.note.key) != nullptr) continue;
    if (!fresh.lines_.empty() && fresh.lines_.back().text.back() != '\n') {
      fresh.lines_.back().text += '\n';
    }
    fresh.lines_.push_back(std::move(line));
    ++kept;
  }
  lines_ = std::move(fresh.lines_);
  return kept;
}

std::string NoteLines::ToText() const {
  std::string memo;
  for (Line const& line : lines_) memo += line.text;
  return memo;
}

std::size_t NoteLines::Count() const {
  return static_cast<std::size_t>(
      std::count_if(lines_.begin(), lines_.end(), [](Line const& line) { return line.isNote; }));
}

std::string NoteLines::WithoutNotes() const {
  std::string memo;
  for (Line const& line : lines_) memo += line.isNote ? "" : line.text;
  return memo;
}

std::string NoteText(std::string const& text, std::string const& what) {
  std::string line;
  for (char const c : text) {
    bool const isBlank = std::string_view(kBlanks).find(c) != std::string_view::npos;
    if (isBlank && !line.empty() && line.back() != ' ') line += ' ';
    if (isBlank) continue;
    if ((c >= 0 && c < ' ') || c == '\x7f') {
      throw Failure(what + " has a control character");
    }
    line += c;
  }
  if (!IsUtf8(line)) throw Failure(what + " is not in UTF-8");
  CheckDocument(line, DocumentPlace::kMemo, what);
  return std::string(Trimmed(line));
}

}  // namespace zel::desk
