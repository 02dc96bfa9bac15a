// Texts of documents as the numbers and texts that a library keeps, and what is said of those that
// do not fit, by the care that the host has asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "maint/maint_log.h"
#include "xml/xml_document.h"
#include "zelaccess/Interchange.h"

namespace zel {

class TextChecks {
 public:
  TextChecks(MaintLog& log, zelImportChecks level) : log_(log), level_(level) {}

  bool On() const noexcept { return level_ != importUnchecked; }
  // Of lost parts and malformed numbers: errors rather than warnings.
  bool Refuses() const noexcept { return level_ >= importChecked; }

  // Begins what is stored, or left out, as one piece.
  void Begin() noexcept { refused_ = false; }
  // True when the piece is not to be stored, an error having been reported since Begin; whether the
  // import may go on.
  bool Refused() const noexcept { return refused_; }
  bool Verdict() const noexcept { return verdict_; }
  // True when such an error has ended the import.
  bool Ended() const noexcept { return refused_ && !verdict_; }

  // The lenient value of a text. `at` is the element that holds it, as its own text or as that of
  // an attribute.
  double Real(XmlNode at, std::string_view text, std::string_view attribute = {});
  std::int32_t Int(XmlNode at, std::string_view text, std::string_view attribute = {});
  // Groups of a structure, "number(count)".
  void CheckGroup(XmlNode at, std::string_view text);
  // More values than have a place.
  void CheckCount(XmlNode at, std::size_t found, std::size_t places);
  // A second of what counts once, named by `key`.
  void CheckOnce(XmlNode at, std::string_view key, bool& seen);

  // A text that is kept in `room` characters, the terminator included, of packed text.
  void CheckText(XmlNode at, std::string_view text, std::size_t room,
                 std::string_view attribute = {});
  static std::string Packed(std::string_view text, std::size_t room);
  // A text that is kept as another one, which may differ in blanks.
  void CheckKept(XmlNode at, std::string_view text, std::string_view kept,
                 std::string_view attribute = {});
  void Altered(XmlNode at, std::string_view text, std::string_view kept,
               std::string_view attribute = {});
  void Warn(XmlNode at, std::string_view words) { Say(false, at, {}, words, {}); }

  std::int64_t MalformedCount() const noexcept { return malformed_; }
  std::int64_t AlteredCount() const noexcept { return altered_; }

 private:
  // `text` is what is malformed, `kept` what is stored for it where that is a warning.
  void Malformed(XmlNode at, std::string_view attribute, std::string_view words,
                 std::string_view text = {}, std::string kept = {});
  void Say(bool isError, XmlNode at, std::string_view attribute, std::string_view words,
           LogDetail detail);

  MaintLog& log_;
  zelImportChecks level_;
  bool refused_ = false;
  bool verdict_ = true;
  std::int64_t malformed_ = 0;
  std::int64_t altered_ = 0;
};

}  // namespace zel
