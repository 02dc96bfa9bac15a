// Checks whether the identifiers of a component already belong to another one, in this library or
// in the reference library of the process, the name index.
#include <cstdio>
#include <string>
#include <vector>

#include "frame/ascii.h"
#include "maint/component_identity.h"
#include "maint/lib_maint.h"

namespace zel {

namespace {

constexpr std::size_t kTextSize = 300;

using Ids = std::vector<std::string_view>;

// The words for conflicts with one library: for one ID, and for several.
struct ConflictWords {
  std::string_view one;
  std::string_view several;
};
constexpr ConflictWords kOwnWords = {"already refers to a component in this library",
                                     "already refer to components in this library"};
constexpr ConflictWords kReferenceWords = {"already refers to a Ordwin component",
                                           "already refer to Ordwin components"};

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string ConflictText(Ids const& ids, ConflictWords const& words) {
  if (ids.empty()) return {};
  std::string const last = Quoted(ids.back());
  if (ids.size() == 1) return "Library ID " + last + " " + std::string(words.one);
  std::string text = "Library IDs ";
  if (ids.size() == 2) {
    text += Quoted(ids.front()) + " ";
  } else {
    for (std::size_t i = 0; i + 1 < ids.size(); ++i) text += Quoted(ids[i]) + ", ";
  }
  return text + "and " + last + " " + std::string(words.several);
}

bool HasId(ComponentIdentity const& identity, char const* text) {
  for (auto const& id : identity.ids) {
    if (SameText(id, text)) return true;
  }
  return false;
}

std::string MismatchText(std::string const& key, std::string_view what) {
  return "Key " + Quoted(key) + " does not match " + std::string(what) + " of the component";
}

// What is wrong with the key of a component; empty when the key fits.
std::string KeyText(ComponentIdentity const& identity, Key_p const& key) {
  if (key.GetCompCount() != 1) return "Key contains more than one component";
  switch (key.GetCompKind(0)) {
    case keyNumber: {
      long number = 0;
      key.GetCompNumber(0, number);
      if (number == identity.number) return {};
      return MismatchText(std::to_string(number), "the library ID number");
    }
    case keyText: {
      char text[ComponentIdentity::kIdSize];
      key.GetCompText(0, text);
      return HasId(identity, text) ? std::string() : MismatchText(text, "any library ID");
    }
    case keyCas: {
      casn cas;
      key.GetCompCasn(0, cas);
      if (static_cast<long>(cas) == identity.casNumber) return {};
      return MismatchText(static_cast<char const*>(cas), "the CAS number");
    }
    default: return "Key is undefined";
  }
}

// Ignores errors that damage to a library causes, but rethrows those of a failing disk: what could
// not be read then may contain a conflict.
template <typename Work>
void UnlessDamaged(Work const& work) {
  try {
    work();
  } catch (unsigned long const error) {
    if (FaultOf(error) == BlockFault::kNotRead) throw;
  }
}

// The number that a look-up finds if it is that of another component, otherwise 0. A damaged index
// counts as finding nothing.
template <typename LookUp>
std::int32_t OtherNumber(ComponentIdentity const& identity, LookUp const& lookUp) {
  std::int32_t number = 0;
  UnlessDamaged([&] {
    std::int32_t const* data = nullptr;
    if (lookUp(data) && data[0] != identity.number) number = data[0];
  });
  return number;
}

std::int32_t OtherWithId(LibFile_p* library, ComponentIdentity const& identity, char const* id) {
  if (library == nullptr) return 0;
  return OtherNumber(identity, [&](auto& data) { return library->FindIdNumbers(id, data); });
}

std::int32_t OtherWithCas(LibFile_p* library, ComponentIdentity const& identity) {
  if (library == nullptr) return 0;
  return OtherNumber(identity,
                     [&](auto& data) { return library->FindCasNumbers(identity.Cas(), data); });
}

// The pieces that are not empty, separated by two blanks.
std::string Joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (std::string_view piece : pieces) {
    if (piece.empty()) continue;
    if (!text.empty()) text += "  ";
    text += piece;
  }
  return text;
}

}  // namespace

// A CAS number that another component has causes a warning only.
void LibMaint_i::WarnOfSharedCas(IZelPureComp* component, LibFile_p* reference) {
  ComponentIdentity const identity(component);
  if (identity.casNumber == 0) return;
  std::int32_t other = OtherWithCas(reference, identity);
  if (other == 0) other = OtherWithCas(library_, identity);
  if (other == 0) return;
  char id[ComponentIdentity::kIdSize] = {};
  // The component is written even if the other one is damaged.
  UnlessDamaged([&] { GetIdOfNumber(other, id); });
  char number[16];
  std::snprintf(number, sizeof number, " (%08d)", other);
  log_.ReportWarning("CAS number " + Quoted(static_cast<char const*>(identity.Cas())) +
                     " duplicates component " + Quoted(id) + number);
}

bool LibMaint_i::CheckComponent(IZelPureComp* component, Key* key, char* text) {
  if (text != nullptr) *text = '\0';
  if (component == nullptr) return false;
  ComponentIdentity const identity(component);
  NameIndexUse const use;
  LibFile* index = use.Library();
  auto* reference = index == library_ ? nullptr : dynamic_cast<LibFile_p*>(index);
  auto const* inner = dynamic_cast<Key_p const*>(key);
  std::string const keyText = inner == nullptr ? std::string() : KeyText(identity, *inner);
  Ids ownConflicts;
  Ids referenceConflicts;
  for (auto const& id : identity.ids) {
    if (id[0] == '\0') continue;
    if (OtherWithId(reference, identity, id) != 0) {
      referenceConflicts.emplace_back(id);
    } else if (OtherWithId(library_, identity, id) != 0) {
      ownConflicts.emplace_back(id);
    }
  }
  WarnOfSharedCas(component, reference);
  if (keyText.empty() && ownConflicts.empty() && referenceConflicts.empty()) return true;
  if (text != nullptr) {
    CopyText(Joined({keyText, ConflictText(ownConflicts, kOwnWords),
                     ConflictText(referenceConflicts, kReferenceWords)}),
             text, kTextSize);
  }
  return false;
}

bool LibMaint_i::CheckComponent(IZelPureComp* component, char* text) {
  return CheckComponent(component, nullptr, text);
}

// Checks a bank that holds a component; the reasons for false are left as the pending text.
bool LibMaint_i::MayBeWritten(IZelBankIO* bank, Key* key) {
  auto const component = FaceRef<IZelPureComp>::Of(bank, IID_IZelPureComp);
  char text[kTextSize];
  if (!component || CheckComponent(component.Get(), key, text)) return true;
  log_.SetPendingText(text);
  itemValid_ = false;
  return false;
}

}  // namespace zel
