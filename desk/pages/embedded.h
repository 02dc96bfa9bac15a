// Files that are built into the program: see zel_embed in desk/CMakeLists.txt.
#pragma once

#include <cstddef>
#include <string_view>

namespace zel {
extern unsigned char const kEquationDocument[];
extern unsigned char const kPage[];
extern unsigned char const kPageStyle[];
extern unsigned char const kCurvesScript[];
extern unsigned char const kFormulaScript[];
extern unsigned char const kChartsScript[];
extern unsigned char const kSheetScript[];
extern unsigned char const kPageScript[];
extern unsigned char const kUplotScript[];
extern unsigned char const kUplotStyle[];
extern unsigned char const kUplotLicense[];
}  // namespace zel

namespace zel::desk {

// The text of such a file; a 0 follows it.
inline std::string_view Embedded(unsigned char const* file) {
  return reinterpret_cast<char const*>(file);
}

}  // namespace zel::desk
