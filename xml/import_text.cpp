#include "xml/import_text.h"

#include <algorithm>

#include "frame/date_text.h"

namespace zel {

namespace {
constexpr std::size_t kLongestMemo = 3999;
constexpr std::string_view kWhiteSpace = " \t\r\n";
}  // namespace

std::string MemoText(std::string_view text, bool& lost) {
  lost = false;
  // The bracket of a mark counts as a blank.
  auto const drop = [&](std::size_t size, std::size_t mark) {
    for (std::size_t i = 0; i < size; ++i) {
      lost = lost || (i != mark && kWhiteSpace.find(text[i]) == std::string_view::npos);
    }
    text.remove_prefix(size);
  };
  std::string memo;
  if (!text.empty()) drop(1, 1);
  // Stops at the length that is kept: without marks, each line searches to the end of the text.
  for (std::size_t end = text.find('\n');
       end != std::string_view::npos && memo.size() < kLongestMemo; end = text.find('\n')) {
    memo.append(text.substr(0, end + 1));
    text.remove_prefix(end + 1);
    // The next mark is used, even if it is several lines later.
    std::size_t const mark = text.find('[');
    std::size_t const dropped = mark == std::string_view::npos ? 1 : mark + 2;
    drop(std::min(dropped, text.size()), mark);
  }
  memo.append(text);
  lost = lost || memo.size() > kLongestMemo;
  memo.resize(std::min(memo.size(), kLongestMemo));
  return memo;
}

std::string DatedText(std::string_view text, std::size_t longest) {
  constexpr std::string_view kMark = "%date%";
  std::string dated(text.substr(0, longest));
  std::size_t const at = dated.find(kMark);
  if (at != std::string::npos) dated.replace(at, kMark.size(), TodayText());
  dated.resize(std::min(dated.size(), longest));
  return dated;
}

}  // namespace zel
