#include "xml/import_text.h"

#include "frame/date_text.h"

namespace zel {

namespace {
constexpr std::size_t kLongestMemo = 3999;
constexpr std::size_t kLongestDescription = 100;
}  // namespace

std::string MemoText(std::string_view text) {
  std::string memo;
  if (!text.empty()) text.remove_prefix(1);
  // Not beyond what is kept: where no mark stands, each line looks for one to the end of the text.
  for (std::size_t end = text.find('\n');
       end != std::string_view::npos && memo.size() < kLongestMemo; end = text.find('\n')) {
    memo.append(text.substr(0, end + 1));
    text.remove_prefix(end + 1);
    // The next mark counts, also one that stands lines further on.
    std::size_t const mark = text.find('[');
    std::size_t const dropped = mark == std::string_view::npos ? 1 : mark + 2;
    text.remove_prefix(std::min(dropped, text.size()));
  }
  memo.append(text);
  memo.resize(std::min(memo.size(), kLongestMemo));
  return memo;
}

std::string DatedText(std::string_view text) {
  constexpr std::string_view kMark = "%date%";
  std::string dated(text.substr(0, kLongestDescription));
  std::size_t const at = dated.find(kMark);
  if (at != std::string::npos) dated.replace(at, kMark.size(), TodayText());
  dated.resize(std::min(dated.size(), kLongestDescription));
  return dated;
}

}  // namespace zel
