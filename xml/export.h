// Export_i: writes a library, a bank or a component in the interchange format.
//
// A plain formatter: texts are written as is, except that double quotes in component names are
// replaced, so a "&" or "<" in a text makes a document that cannot be read back. Functions return
// whether the files could be opened and all of their text was written.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "frame/path_parts.h"
#include "frame/platform/text_file.h"
#include "maint/lib_maint.h"
#include "store/progress_steps.h"

namespace zel {

struct ExportSwitches {
  bool writeFormat;     // write the format of a bank; if false, banks of later formats are left out
  bool writeBanner;     // a block for a maintenance log in the header
  bool writeNotice;     // a notice of rights in the header
  bool componentFiles;  // components of a bank in files of their own, named by `import` tags
};

class Export_i {
 public:
  // `path` is the destination; its folder, file name and extension are used as far as it has them.
  Export_i(LibMaint_i& owner, ExportSwitches const& switches, std::string_view path);

  bool ExportLibrary();
  // Also true for a bank that is left out because its format may not be written.
  bool ExportBank(char const* type, char const* name);
  bool ExportComponentByNumber(char const* bank, std::int32_t number);
  bool ExportComponentById(char const* bank, char const* id);
  bool IsCancelled() const noexcept { return progress_.IsCancelled(); }

 private:
  bool WriteBank(std::string const& type, std::string const& name, std::string_view base,
                 std::string& file);
  // The result of writing a component's own file.
  enum class Written { kWhole, kNoComponent, kNotWhole };
  Written WriteComponentFile(char const* bank, Key* key, std::string const& component,
                             std::string_view base, std::string& file);
  bool WriteOneComponent(char const* bank, Key* key, std::string const& component);
  // The work for a bank; 0 unless the host follows the progress.
  double WorkOf(std::string const& type, std::string const& name);
  bool WriteComponents(platform::TextFile& out, std::string const& bank);
  std::string PathOf(std::string const& file) const;
  std::string Named(std::string_view base, std::string const& fallback) const;
  // The file for a bank or a component, whose name can have what file names cannot.
  std::string NamedAfter(std::string_view base, std::string const& contents) const;
  void PutHeader(platform::TextFile& out, std::string label) const;
  static void PutMemo(platform::TextFile& out, std::string memo);

  LibMaint_i& owner_;
  LibFile& library_;
  ExportSwitches switches_;
  ProgressSteps progress_;
  std::string folder_;
  std::string base_;
  std::string extension_;
  // First library ID by component number, for the components looked up so far.
  std::unordered_map<std::int32_t, std::string> ids_;
};

}  // namespace zel
