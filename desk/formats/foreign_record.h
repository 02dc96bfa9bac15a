// What a file of another program's form says about components, before it goes into a library.
//
// A reader of a form makes these records; foreign_import.h writes them. Each datum of the file is
// in `data` with what became of it, so that nothing is left out without a word.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "desk/open/pure_component.h"

namespace zel::desk {

enum class Fate {
  kTaken,      // every number is as in the file
  kConverted,  // a number or a text is not: another unit, another form
  kNoPlace,    // a component has no such datum, or the equation no form here
  kRefused     // it is wrong in the file, or a library cannot hold it
};
char const* ToText(Fate fate);

struct ForeignDatum {
  std::size_t line = 0;
  std::string tag;  // its name in the file
  Fate fate = Fate::kTaken;
  std::string datum;  // the constant, the correlation or the part of the identity that it becomes
  std::string what;   // how it was converted, or why it has no place or is refused
};

struct ForeignConstant {
  zel::ZelConstantInfo const* info = nullptr;
  double value = 0.0;      // in the internal unit
  std::size_t origin = 0;  // index in `data`
};

struct ForeignCurve {
  zel::ZelCorrelationInfo const* info = nullptr;
  Curve curve;           // in K; propUnit is not set
  std::string unit;      // of the values, as a word
  bool needsTc = false;  // the form reads the component's critical temperature
  std::size_t origin = 0;
};

struct ForeignComponent {
  std::size_t line = 0;
  std::string name;
  std::string cas;
  std::string formula;
  std::string smiles;
  std::vector<ForeignConstant> constants;
  std::vector<ForeignCurve> curves;
  std::vector<ForeignDatum> data;

  // Adds what became of a datum; returns its index.
  std::size_t Note(std::size_t line, std::string const& tag, Fate fate, std::string const& datum,
                   std::string const& what = "");
};

struct ForeignFile {
  std::string citation;           // for the data as a whole
  bool namesAreFormulas = false;  // such as "O2" and "Co"; see ForeignIdentities
  std::vector<ForeignComponent> components;
};

// A constant of the file: the text of a number and a word for its unit, empty for none.
struct ForeignNumber {
  std::size_t line = 0;
  std::string tag;
  std::string text;
  std::string unit;
};
// What is said of a datum that has a dimension and whose unit the file does not name.
inline constexpr char kNoUnit[] = "the file does not name its unit";
// Adds the constant with this keyword in its internal unit. A text that is not a finite number, a
// unit of another kind and a second value are refused. A datum that has a dimension has no place
// without a unit; only a molecular weight may be a relative one, which is a pure number.
void AddConstant(ForeignComponent& component, std::string const& keyword,
                 ForeignNumber const& number);

// Sets a text of the identity as far as a library can hold it: brackets become parentheses, other
// letters that it does not have "?", and what is too long is cut.
void SetName(ForeignComponent& component, std::size_t line, std::string const& tag,
             std::string const& text);
// A formula in any order, such as "CH3CH2OH", becomes one in that of Hill, "C2H6O". What is not a
// formula of elements and counts has no place.
void SetFormula(ForeignComponent& component, std::size_t line, std::string const& tag,
                std::string const& text);
// A formula in the order of Hill; empty for a text that is not a formula of elements and counts.
std::string FormulaOfElements(std::string const& text);
// These have no place or are refused if a library cannot hold them unchanged.
void SetSmiles(ForeignComponent& component, std::size_t line, std::string const& tag,
               std::string const& text);
void SetCas(ForeignComponent& component, std::size_t line, std::string const& tag,
            std::string const& text);

// The text of a file of up to 256 MB. Throws Failure for one that cannot be read.
std::string ForeignText(std::string const& path);

}  // namespace zel::desk
