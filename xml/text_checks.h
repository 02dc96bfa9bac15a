// Converts texts of documents to the numbers and texts that a library keeps, and reports those that
// do not fit, according to the checks that the host has selected.
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
  // True if lost parts and malformed numbers are errors rather than warnings.
  bool Refuses() const noexcept { return level_ >= importChecked; }

  // Begins a piece that is stored or left out as a whole.
  void Begin() noexcept { refused_ = false; }
  // Refused: an error was reported since Begin, so the piece must not be stored. Verdict: whether
  // the import may continue.
  bool Refused() const noexcept { return refused_; }
  Verdict LastVerdict() const noexcept { return verdict_; }
  // True if such an error ends the import.
  bool Ended() const noexcept { return refused_ && verdict_ == Verdict::kStop; }

  // Return the value of a text, read leniently. `at` is the element that has the text, as its own
  // or in an attribute.
  double Real(XmlNode at, std::string_view text, std::string_view attribute = {});
  std::int32_t Int(XmlNode at, std::string_view text, std::string_view attribute = {});
  // Checks a group of a structure, "number(count)".
  void CheckGroup(XmlNode at, std::string_view text);
  // Checks that there are not more values than places.
  void CheckCount(XmlNode at, std::size_t found, std::size_t places);
  // Checks that something allowed once, named by `key`, is not given again.
  void CheckOnce(XmlNode at, std::string_view key, bool& seen);

  // Checks a text that is kept as packed text in `room` characters, including the terminator.
  void CheckText(XmlNode at, std::string_view text, std::size_t room,
                 std::string_view attribute = {});
  static std::string Packed(std::string_view text, std::size_t room);
  // Checks that a text and the one that is kept for it differ in blanks only.
  void CheckKept(XmlNode at, std::string_view text, std::string_view kept,
                 std::string_view attribute = {});
  void Altered(XmlNode at, std::string_view text, std::string_view kept,
               std::string_view attribute = {});
  void Warn(XmlNode at, std::string_view words) { Say(false, at, {}, words, {}); }

  std::int64_t MalformedCount() const noexcept { return malformed_; }
  std::int64_t AlteredCount() const noexcept { return altered_; }

 private:
  // `text` is the malformed text, `kept` what is stored for it if this is only a warning.
  void Malformed(XmlNode at, std::string_view attribute, std::string_view words,
                 std::string_view text = {}, std::string kept = {});
  void Say(bool isError, XmlNode at, std::string_view attribute, std::string_view words,
           LogDetail detail);

  MaintLog& log_;
  zelImportChecks level_;
  bool refused_ = false;
  Verdict verdict_ = Verdict::kGoOn;
  std::int64_t malformed_ = 0;
  std::int64_t altered_ = 0;
};

}  // namespace zel
