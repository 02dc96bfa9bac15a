// Items of every type and format, compared byte for byte with text printed by the C library.
#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "maint/block_info.h"
#include "store/packed_text.h"
#include "tests/support/bank_types.h"
#include "tests/xml/export_fixture.h"

namespace zel {
namespace {

constexpr std::int32_t kWildcard = 2147483647;
constexpr std::int32_t kComponents = 5;  // numbers 1 to 5; 4 and 5 have no ID
constexpr char const* kIds[] = {"", "ONE", "TWO", "EIGHTLET", "", ""};

std::string Printed(char const* form, std::int32_t value) {
  char text[64];
  std::snprintf(text, sizeof text, form, value);
  return text;
}
std::string Printed(char const* form, double value) {
  char text[64];
  std::snprintf(text, sizeof text, form, value);
  return text;
}
std::string Padded(char const* form, char const* text) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, form, text);
  return buffer;
}

// One row of a field list.
struct Field {
  std::string name;
  std::int32_t type;
  std::size_t count;
};

std::vector<Field> FieldsOf(IZelBankDef* bank, std::int32_t format) {
  std::int32_t n = 0;
  bank->GetFieldCount(format, &n);
  char names[20][13], labels[20][20], units[20][20];
  std::int32_t types[20], counts[20];
  bank->GetFieldList(format, names, labels, types, counts, units);
  std::vector<Field> fields;
  for (std::int32_t i = 0; i < n; ++i) {
    fields.push_back({names[i], types[i], static_cast<std::size_t>(counts[i])});
  }
  return fields;
}

class ExportAllTypesTest : public test::ExportTest {
 protected:
  // Fills in values of all sizes, some of them undefined.
  void FillAtRandom(IZelBankDef* bank, std::vector<Field> const& fields) {
    auto const undefined = [this] { return random_() % 4 == 0; };
    for (Field const& field : fields) {
      if (field.type == fieldReal) {
        std::vector<double> values(field.count);
        for (double& value : values) {
          value = undefined() ? gen_GetUndefDouble()
                              : std::ldexp(static_cast<double>(random_()) - 0x1p31,
                                           static_cast<int>(random_() % 80) - 71);
        }
        bank->SetDoubleField(field.name.c_str(), values.data());
      } else if (field.type == fieldText) {
        bank->SetStringField(field.name.c_str(), undefined() ? "" : "Text");
      } else {
        std::vector<std::int32_t> values(field.count);
        for (std::int32_t& value : values) {
          value = undefined() ? gen_GetUndefInt() : static_cast<std::int32_t>(random_() % 30) - 3;
        }
        if (field.type == fieldEnumerated && random_() % 2 == 0) values[0] = ChoiceOf(bank, field);
        bank->SetIntField(field.name.c_str(), values.data());
      }
    }
  }
  static std::int32_t ChoiceOf(IZelBankDef* bank, Field const& field) {
    char names[30][13];
    std::int32_t values[30], byDefault;
    bank->GetEnumList(field.name.c_str(), names, values, &byDefault);
    return values[0];
  }

  // The name of a value if it has one, otherwise the number.
  static std::string IntegerText(IZelBankDef* bank, Field const& field, std::int32_t value) {
    if (field.type == fieldEnumerated) {
      std::int32_t count = 0, byDefault = 0;
      bank->GetEnumCount(field.name.c_str(), &count);
      char names[30][13];
      std::int32_t values[30];
      bank->GetEnumList(field.name.c_str(), names, values, &byDefault);
      for (std::int32_t i = 0; i < count; ++i) {
        if (values[i] == value) return std::string(" ") + names[i];
      }
    }
    return Printed(" %d", value);
  }

  // The values one by one: an undefined value is written only if a defined one follows.
  static std::string FieldText(IZelBankDef* bank, Field const& field) {
    std::string values;
    if (field.type == fieldText) {
      std::vector<char> text(field.count);
      bank->GetStringField(field.name.c_str(), text.data());
      if (text[0] != '\0') values = std::string(" ") + text.data();
    } else {
      std::vector<std::int32_t> ints(field.count);
      std::vector<double> reals(field.count);
      bool const isReal = field.type == fieldReal;
      isReal ? bank->GetDoubleField(field.name.c_str(), reals.data())
             : bank->GetIntField(field.name.c_str(), ints.data());
      std::string waiting;
      for (std::size_t i = 0; i < field.count; ++i) {
        bool const undefined = isReal ? reals[i] <= -1e35 : ints[i] == INT32_MIN;
        if (undefined && i == 0) break;
        if (undefined) {
          waiting += " -";
          continue;
        }
        values += waiting;
        waiting.clear();
        values += isReal ? Printed(" %.7g", reals[i]) : IntegerText(bank, field, ints[i]);
      }
    }
    if (values.empty()) return {};
    return "    <" + field.name + ">" + values + " </" + field.name + ">\n";
  }

  // The number of key words that are written, from the form of the key.
  static int KeyLength(BankInfo const& info, std::int32_t const* words) {
    if (info.keyKind == 2 || info.minKeyWords == info.keyWords) return info.keyWords;
    EXPECT_EQ(info.keyWords, 2) << "no longer key may be left short";
    if (words[1] != kWildcard && words[0] != words[1]) return 2;
    bool const none = words[0] == kWildcard;
    return none && info.minKeyWords == 0 ? 0 : 1;
  }
  static std::string KeyText(BankInfo const& info, std::int32_t const* words, int length) {
    if (length == 0) return "    <!-- no key -->\n";
    if (info.keyKind == 2) {
      char text[41];
      WordsToText(words, length, text);
      return std::string("    <characterkey> ") + text + " </characterkey>\n";
    }
    std::string numbers, ids;
    bool any = false;
    for (int i = 0; i < length; ++i) {
      numbers += Printed(info.keyKind == 0 ? " %08d" : " %d", words[i]);
      char const* id = words[i] >= 1 && words[i] <= kComponents ? kIds[words[i]] : "";
      any = any || id[0] != '\0';
      ids += Padded("%-9s", id);
    }
    if (info.keyKind == 1) return "    <numerickey>" + numbers + " </numerickey>\n";
    std::string const keys = "    <keys>" + numbers + " </keys>\n";
    return any ? keys + "    <!--   " + ids + "    -->\n" : keys;
  }

  std::string ExpectedItems(char const* type, char const* name, std::int32_t format) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    BankInfo const info(bank.Get());
    std::vector<Field> const fields = FieldsOf(bank.Get(), format);
    std::vector<std::string> byLength(static_cast<std::size_t>(info.keyWords) + 1);
    std::int32_t words[10] = {};
    Maint().BeginItemWalk(type, name);
    while (Maint().NextItem(words, bank.Get())) {
      int const length = KeyLength(info, words);
      std::string& text = byLength[static_cast<std::size_t>(length)];
      text += "  <item>\n" + KeyText(info, words, length);
      for (Field const& field : fields) text += FieldText(bank.Get(), field);
      text += "  </item>\n";
    }
    std::string all;
    for (std::string const& text : byLength) all += text;
    return all;
  }

  void PutItems(char const* type, char const* name, std::int32_t format) {
    ASSERT_TRUE(Maint().CreateBank(type, name, format)) << type;
    FaceRef<IZelBankDef> const bank(NewBank(type));
    BankInfo const info(bank.Get());
    std::vector<Field> const fields = FieldsOf(bank.Get(), format);
    for (auto const& [i, j] : {std::pair{1, 2},
                               {2, 2},
                               {3, kWildcard},
                               {4, 5},
                               {99999999, 4},
                               {123456789, 1},
                               {kWildcard, kWildcard},
                               {5, 5}}) {
      std::int32_t words[4] = {i, j, 3, 4};
      if (info.keyKind == 2) TextToWords(Printed("K%d", j).c_str(), words, info.keyWords);
      FillAtRandom(bank.Get(), fields);
      Key_i key;
      key.SetKeyWords(info.keyWords, words);
      ASSERT_TRUE(Maint().WriteItem(bank.Get(), name, &key)) << type;
    }
  }

  std::mt19937 random_{7};
};

TEST_F(ExportAllTypesTest, ItemsOfAllTypesAndFormatsAreExact) {
  PutComponent(1, {kIds[1]});
  PutComponent(2, {kIds[2], "SECOND"});
  PutComponent(3, {kIds[3]});
  int formats = 0;
  for (char const* const type : test::BankTypes()) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    BankInfo const info(bank.Get());
    if (std::string_view(type) == "PURECOMP") continue;
    for (std::int32_t format = 1; format <= info.formatCount; ++format, ++formats) {
      std::string const name = Printed("B%d", format);
      PutItems(type, name.c_str(), format);
      std::string const items = ExpectedItems(type, name.c_str(), format);
      EXPECT_NE(items.find("  <item>\n"), std::string::npos) << type;
      ASSERT_TRUE(Maint().ExportBank(type, name.c_str(), Out("b.xml").c_str()));
      std::string const told = info.formatCount == 1 ? "" : Printed(" format=\"%d\"", format);
      EXPECT_EQ(Body("b.xml"), "<bank type=\"" + std::string(type) + "\" name=\"" + name + "\"" +
                                   told + ">\n" + items + "</bank>\n");
    }
  }
  EXPECT_EQ(formats, 54) << "five types have two formats";
}

}  // namespace
}  // namespace zel
