#include "desk/open/library_path.h"

#include <algorithm>
#include <filesystem>

#include "desk/files/folder.h"
#include "desk/open/change_places.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/nearest_word.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr char kEnding[] = ".lb1";
constexpr char kHere[] = ".";

bool EndsAsLibrary(std::string const& word) {
  std::size_t const length = sizeof(kEnding) - 1;
  return word.size() > length && LowerCase(word.substr(word.size() - length)) == kEnding;
}

bool IsThere(std::string const& path) {
  std::error_code none;  // an error shows when the file is opened
  if (Exists(path)) return !fs::is_directory(path, none);
  return EndsAsLibrary(path) && IsThereOrBeingChanged(path);
}

// "perry" for "perry.lb1", which both mean the same file; with its ending if that is not exactly
// ".lb1".
std::string WordOf(std::string const& file) {
  fs::path const name(file);
  return name.extension() == kEnding ? name.stem().string() : file;
}

std::string Question(std::string const& nearest) {
  return nearest.empty() ? "" : "; did you mean " + nearest + "?";
}

}  // namespace

std::vector<std::string> FoldersOf(std::string const& text) {
  std::vector<std::string> folders;
  for (std::size_t at = 0; at < text.size() + 1 && !text.empty();) {
    std::size_t const end = std::min(text.find(':', at), text.size());
    folders.push_back(end == at ? kHere : text.substr(at, end - at));
    at = end + 1;
  }
  return folders;
}

std::string LibraryPath::Found(std::string const& word) const {
  if (IsThere(word)) return word;
  if (word.find('/') != std::string::npos) return "";
  std::string file = EndsAsLibrary(word) ? word : word + kEnding;
  if (file != word && IsThere(file)) return file;
  for (std::string const& folder : folders_) {
    std::string path = Inside(folder, file).string();
    if (IsThere(path)) return path;
  }
  return "";
}

std::string LibraryPath::Find(std::string const& word) const {
  if (word.empty()) return word;
  std::string found = Found(word);
  if (!found.empty()) return found;
  if (folders_.empty() || word.find('/') != std::string::npos) return word;
  std::string list;
  for (std::string const& folder : folders_) list += (list.empty() ? "" : ", ") + folder;
  std::vector<std::string> words;
  for (PathLibrary const& one : Libraries()) words.push_back(one.word);
  std::string const nearest = NearestWord(EndsAsLibrary(word) ? WordOf(word) : word, words);
  throw OpenError(
      word, "not found in the current folder and on the path (" + list + ")" + Question(nearest),
      zel::openNotFound);
}

std::string LibraryPath::Suggestion(std::string const& path) {
  fs::path file(path);
  std::string const word = file.filename().string();
  std::string const folder = file.parent_path().string();
  std::vector<std::string> words;
  try {
    for (std::string const& one : LibrariesIn(folder.empty() ? kHere : folder)) {
      words.push_back(WordOf(one));
    }
  } catch (fs::filesystem_error const&) {
    return "";  // a folder that may not be read; the library is not found in any case
  }
  std::string nearest = NearestWord(EndsAsLibrary(word) ? WordOf(word) : word, words);
  if (nearest.empty()) return "";
  if (EndsAsLibrary(word) && !EndsAsLibrary(nearest)) nearest += kEnding;
  return Question(file.replace_filename(nearest).string());
}

std::string LibraryPath::FindSource(std::string const& word) const {
  std::size_t const slash = word.rfind('/');
  std::size_t const colon = word.find(':', slash == std::string::npos ? 0 : slash);
  if (colon == std::string::npos || IsThere(word)) return Find(word);
  return Find(word.substr(0, colon)) + word.substr(colon);
}

std::vector<std::string> LibraryPath::LibrariesIn(std::string const& folder) {
  std::vector<std::string> files;
  if (!Exists(folder) || !fs::is_directory(folder)) return files;
  for (std::string& name : NamesIn(folder)) {
    if (!EndsAsLibrary(name) || name[0] == '.') continue;
    fs::file_status const status = fs::status(Inside(folder, name));
    if (fs::exists(status) && !fs::is_directory(status)) files.push_back(std::move(name));
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<PathLibrary> LibraryPath::Libraries() const {
  std::vector<PathLibrary> libraries;
  std::vector<std::string> folders = folders_;
  folders.insert(folders.begin(), kHere);
  for (std::string const& folder : folders) {
    for (std::string const& file : LibrariesIn(folder)) {
      std::string const path = folder == kHere ? file : Inside(folder, file).string();
      std::string const word = WordOf(file);
      std::string const found = Found(word);
      bool const isFound = found.empty() || found == path || fs::equivalent(found, path);
      libraries.push_back({word, path, !isFound});
    }
  }
  return libraries;
}

}  // namespace zel::desk
