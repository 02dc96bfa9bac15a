// A component list and its files in a folder of the test.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "frame/date_text.h"
#include "lists/comp_list.h"
#include "tests/frame/temp_folder.h"
#include "zelaccess/CompList_p.h"

namespace zel::test {

inline double const kNone = gen_GetUndefDouble();

class CompListTest : public TempFolderTest {
 protected:
  ~CompListTest() override { list_.ResetRange(); }

  bool Read(std::string const& text) {
    MakeFile("list.lst", text);
    return list_.ReadList(Path("list.lst").c_str());
  }
  // The IDs of all rows that a walk returns.
  std::string Walk(compListSorts sort, bool descending = false) {
    list_.SetSort(sort, descending ? 1 : 0);
    return Rest();
  }
  std::string Rest() {
    std::string ids;
    char name[41], id[13], formula[21], cas[21];
    double nbp, mw;
    while (list_.GetNext(name, id, formula, cas, nbp, mw)) ids += std::string(id) + " ";
    return ids;
  }
  CompListBuild_p& Builder() { return dynamic_cast<CompListBuild_p&>(*list_.GetBuilder()); }
  std::string FileText(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    if (!file) return "no file";
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::string Head(std::string const& file) {
    return "; *********************************************\n;\n"
           "; *** Generated File - Do Not Edit Manually ***\n"
           ";     File name      - " +
           file + "\n;     Last generated - " + LongTodayText() +
           "\n; *** Generated File - Do Not Edit Manually ***\n;\n"
           "; *********************************************\n\n";
  }

  CompList_i list_;
};

}  // namespace zel::test
