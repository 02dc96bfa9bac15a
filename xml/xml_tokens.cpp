#include "xml/xml_tokens.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace zel {

namespace {

bool IsSpace(char c) noexcept { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

void AppendUtf8(std::uint32_t code, std::string& text) {
  constexpr std::uint32_t kTail = 0x3F;
  auto const add = [&](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    add(code);
  } else if (code < 0x800) {
    add(0xC0 | code >> 6);
    add(0x80 | (code & kTail));
  } else if (code < 0x10000) {
    add(0xE0 | code >> 12);
    add(0x80 | (code >> 6 & kTail));
    add(0x80 | (code & kTail));
  } else {
    add(0xF0 | code >> 18);
    add(0x80 | (code >> 12 & kTail));
    add(0x80 | (code >> 6 & kTail));
    add(0x80 | (code & kTail));
  }
}

// The character of a reference without `&` and `;`: one of the five that need no declaration, or a
// number.
void AppendReference(std::string_view name, std::string& text) {
  if (!name.empty() && name.front() == '#') {
    bool const hex = name.size() > 1 && name[1] == 'x';
    name.remove_prefix(hex ? 2 : 1);
    std::uint32_t code = 0;
    std::from_chars(name.data(), name.data() + name.size(), code, hex ? 16 : 10);
    AppendUtf8(code, text);
  } else {
    text.push_back(name == "lt"     ? '<'
                   : name == "gt"   ? '>'
                   : name == "amp"  ? '&'
                   : name == "quot" ? '"'
                                    : '\'');
  }
}

enum class Decoded : std::uint8_t { kText, kCdata, kAttribute };

// Replaces references, and line ends by one line feed; in an attribute white space by blanks.
void Decode(std::string_view raw, Decoded what, std::string& text) {
  for (std::size_t i = 0; i < raw.size(); ++i) {
    char const c = raw[i];
    if (c == '&' && what != Decoded::kCdata) {
      std::size_t const end = std::min(raw.find(';', i), raw.size());
      AppendReference(raw.substr(i + 1, end - i - 1), text);
      i = end;
    } else if (c == '\r') {
      if (i + 1 < raw.size() && raw[i + 1] == '\n') ++i;
      text.push_back(what == Decoded::kAttribute ? ' ' : '\n');
    } else {
      text.push_back(what == Decoded::kAttribute && IsSpace(c) ? ' ' : c);
    }
  }
}

// What has to be done with a piece of text.
struct TextTraits {
  bool isBlank = true;
  bool isCoded = false;
  std::int32_t lines = 0;

  explicit TextTraits(std::string_view text) noexcept {
    for (char const c : text) {
      if (static_cast<unsigned char>(c) > '&' || !IsSpace(c)) {
        isBlank = false;
        if (c == '&') isCoded = true;
      } else if (c == '\n') {
        ++lines;
      } else if (c == '\r') {
        isCoded = true;
      }
    }
  }
};

bool IsBlank(std::string_view text) noexcept {
  return std::all_of(text.begin(), text.end(), IsSpace);
}

}  // namespace

XmlTokens::XmlTokens(DocumentText& text) : text_(text) {
  text_.BeginAgain();
  if (text_.IsInMemory()) {
    at_ = text_.View().data();
    end_ = at_ + text_.View().size();
    isComplete_ = true;
  } else {
    buffer_.resize(text_.PieceSize());
    at_ = end_ = buffer_.data();
  }
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (LooksAt(kMark)) at_ += kMark.size();
}

// Reads on, keeping the token at hand. False at the end of the text.
bool XmlTokens::Fill() {
  if (isComplete_) return false;
  auto const kept = static_cast<std::size_t>(end_ - at_);
  // at_ and end_ stay consistent with the buffer, also after an exception.
  auto const holds = [&](std::size_t size) {
    at_ = buffer_.data();
    end_ = at_ + size;
  };
  std::memmove(buffer_.data(), at_, kept);
  holds(kept);
  if (2 * kept > buffer_.size()) {
    buffer_.resize(2 * buffer_.size());
    holds(kept);
  }
  std::size_t const read = text_.Read(buffer_.data() + kept, buffer_.size() - kept);
  if (text_.HasFailed()) throw XmlDocumentChanged{text_.Path()};
  holds(kept + read);
  isComplete_ = read == 0;
  return read != 0;
}

bool XmlTokens::LooksAt(std::string_view words) {
  while (static_cast<std::size_t>(end_ - at_) < words.size()) {
    if (!Fill()) return false;
  }
  return std::memcmp(at_, words.data(), words.size()) == 0;
}

std::string_view XmlTokens::Token(std::size_t front, std::string_view end) {
  std::size_t from = front;
  for (;;) {
    std::string_view const seen(at_, static_cast<std::size_t>(end_ - at_));
    std::size_t const found = seen.find(end, from);
    if (found != std::string_view::npos) return seen.substr(0, found + end.size());
    // The end may be cut.
    from = std::max(front, seen.size() - std::min(seen.size(), end.size() - 1));
    if (!Fill()) throw XmlDocumentChanged{text_.Path()};
  }
}

void XmlTokens::Take(std::size_t bytes) noexcept {
  line_ += static_cast<std::int32_t>(std::count(at_, at_ + bytes, '\n'));
  at_ += bytes;
}

void XmlTokens::Next(XmlEvent& event) {
  event.name = event.text = event.tag = {};
  for (;;) {
    if (at_ == end_ && !Fill()) {
      event.kind = XmlEvent::Kind::kDocumentEnd;
      return;
    }
    if (*at_ != '<') {
      if (TakeText(event)) return;
      continue;
    }
    while (end_ - at_ < 2) {
      if (!Fill()) throw XmlDocumentChanged{text_.Path()};
    }
    switch (at_[1]) {
      case '/':
        Take(Token(2, ">").size());
        event.kind = XmlEvent::Kind::kEnd;
        return;
      case '?': TakeInstruction(event); return;
      case '!':
        if (LooksAt("<![CDATA[")) {
          TakeCdata(event);
        } else {
          Take(Token(4, "-->").size());
          event.kind = XmlEvent::Kind::kComment;
        }
        return;
      default: TakeStart(event); return;
    }
  }
}

// False for white space, which is not an event.
bool XmlTokens::TakeText(XmlEvent& event) {
  std::size_t size = 0;
  for (;;) {
    auto const seen = static_cast<std::size_t>(end_ - at_);
    void const* const found = std::memchr(at_ + size, '<', seen - size);
    if (found != nullptr) size = static_cast<std::size_t>(static_cast<char const*>(found) - at_);
    if (found != nullptr) break;
    size = seen;
    if (!Fill()) break;
  }
  std::string_view const raw(at_, size);
  TextTraits const traits(raw);
  at_ += size;
  line_ += traits.lines;
  if (traits.isBlank) return false;
  event.kind = XmlEvent::Kind::kText;
  if (traits.isCoded) {
    decoded_.clear();
    Decode(raw, Decoded::kText, decoded_);
    if (IsBlank(decoded_)) return false;
  }
  event.text = traits.isCoded ? std::string_view(decoded_) : raw;
  return true;
}

void XmlTokens::TakeStart(XmlEvent& event) {
  char quote = '\0';
  std::int32_t lines = 0;
  std::size_t size = 1;
  for (;; ++size) {
    if (at_ + size == end_ && !Fill()) throw XmlDocumentChanged{text_.Path()};
    char const c = at_[size];
    if (c == '\n') ++lines;
    if (quote != '\0') {
      if (c == quote) quote = '\0';
    } else if (c == '>') {
      break;
    } else if (c == '"' || c == '\'') {
      quote = c;
    }
  }
  std::string_view tag(at_ + 1, size - 1);
  event.kind = XmlEvent::Kind::kStart;
  event.isEmpty = !tag.empty() && tag.back() == '/';
  if (event.isEmpty) tag.remove_suffix(1);
  event.tag = tag;
  auto const nameEnd = std::find_if(tag.begin(), tag.end(), IsSpace);
  event.name = tag.substr(0, static_cast<std::size_t>(nameEnd - tag.begin()));
  event.element = nullptr;
  event.line = line_ += lines;
  at_ += size + 1;
}

void XmlTokens::TakeInstruction(XmlEvent& event) {
  std::string_view const token = Token(2, "?>");
  std::string_view const inner = token.substr(2, token.size() - 4);
  auto const nameEnd = std::find_if(inner.begin(), inner.end(), IsSpace);
  event.name = inner.substr(0, static_cast<std::size_t>(nameEnd - inner.begin()));
  event.kind = event.name == "xml" ? XmlEvent::Kind::kDeclaration : XmlEvent::Kind::kInstruction;
  if (event.kind == XmlEvent::Kind::kDeclaration) event.name = {};
  Take(token.size());
}

void XmlTokens::TakeCdata(XmlEvent& event) {
  constexpr std::string_view kFront = "<![CDATA[";
  constexpr std::string_view kEnd = "]]>";
  std::string_view const token = Token(kFront.size(), kEnd);
  decoded_.clear();
  Decode(token.substr(kFront.size(), token.size() - kFront.size() - kEnd.size()), Decoded::kCdata,
         decoded_);
  Take(token.size());
  event.kind = XmlEvent::Kind::kCdata;
  event.text = decoded_;
}

std::size_t XmlTokens::Attributes(std::string_view tag, void const*,
                                  std::vector<XmlAttribute>& attributes) const {
  constexpr std::string_view kXmlns = "xmlns";
  std::size_t count = 0;
  std::size_t namespaces = 0;
  auto const space = [&](std::size_t at) {
    while (at < tag.size() && IsSpace(tag[at])) ++at;
    return at;
  };
  std::size_t at = 0;
  while (at < tag.size() && !IsSpace(tag[at])) ++at;
  while ((at = space(at)) < tag.size()) {
    std::size_t const equals = std::min(tag.find('=', at), tag.size());
    std::string_view name = tag.substr(at, equals - at);
    while (!name.empty() && IsSpace(name.back())) name.remove_suffix(1);
    std::size_t const open = space(equals + 1);
    if (open >= tag.size()) break;
    std::size_t const close = std::min(tag.find(tag[open], open + 1), tag.size());
    at = close + 1;
    if (name == "xmlns:xml") continue;  // which is always declared
    XmlAttribute& attribute = Place(attributes, count);
    attribute.name = name;
    attribute.value.clear();
    Decode(tag.substr(open + 1, close - open - 1), Decoded::kAttribute, attribute.value);
    ++count;
    if (name == kXmlns || name.starts_with("xmlns:")) {
      auto const first = attributes.begin() + static_cast<std::ptrdiff_t>(namespaces);
      std::rotate(first, attributes.begin() + static_cast<std::ptrdiff_t>(count) - 1,
                  attributes.begin() + static_cast<std::ptrdiff_t>(count));
      ++namespaces;
    }
  }
  return count;
}

}  // namespace zel
