// Export_i: a library, a bank or a component written in the interchange form.
//
// A plain formatter: texts go out as they stand, with one mark for double quotes in component
// names, so a "&" or "<" in a text makes a document that does not read back. Results say whether
// the files could be opened and all of their text was written.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "frame/path_parts.h"
#include "frame/platform/text_file.h"
#include "maint/lib_maint.h"

namespace zel {

struct ExportSwitches {
  bool writeFormat;     // write the format of a bank, and banks of later formats at all
  bool writeBanner;     // a block for a maintenance log in the header
  bool writeNotice;     // a notice of rights in the header
  bool componentFiles;  // components of a bank in files of their own, behind `import` tags
};

class Export_i {
 public:
  // `path` says where to: its folder, file name and extension count where it has them.
  Export_i(LibMaint_i& owner, ExportSwitches const& switches, std::string_view path);

  bool ExportLibrary();
  // True also for a bank that is left out since its format may not be told.
  bool ExportBank(char const* type, char const* name);
  bool ExportComponentByNumber(char const* bank, std::int32_t number);
  bool ExportComponentById(char const* bank, char const* id);

 private:
  bool WriteBank(std::string const& type, std::string const& name, std::string_view base,
                 std::string& file);
  // What became of a component's own file.
  enum class Written { kWhole, kNoComponent, kNotWhole };
  Written WriteComponentFile(char const* bank, Key* key, std::string const& component,
                             std::string_view base, std::string& file);
  bool WriteComponents(platform::TextFile& out, std::string const& bank);
  std::string PathOf(std::string const& file) const;
  std::string Named(std::string_view base, std::string const& fallback) const;
  void PutHeader(platform::TextFile& out, std::string label) const;
  static void PutMemo(platform::TextFile& out, std::string memo);

  LibMaint_i& owner_;
  LibFile& library_;
  ExportSwitches switches_;
  std::string folder_;
  std::string base_;
  std::string extension_;
  // First library ID by component number, as far as they were asked for.
  std::unordered_map<std::int32_t, std::string> ids_;
};

}  // namespace zel
