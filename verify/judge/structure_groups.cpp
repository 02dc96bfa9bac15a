#include "verify/judge/structure_groups.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <vector>

namespace zel {
namespace {

using Group = StructureGroup;

struct Bond {
  std::size_t to;
  double order;
};

struct Atom {
  std::string element;
  bool isAromatic = false;
  int hydrogens = -1;  // not given
  std::vector<Bond> bonds;
  bool isInRing = false;
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Reads atoms and bonds one after the other.
class SmilesReader {
 public:
  explicit SmilesReader(std::string_view text) : text_(text) {}

  // False if something is not understood.
  bool Read() {
    while (at_ < text_.size()) {
      if (!Next()) return false;
    }
    if (atoms_.empty() || !open_.empty() || !rings_.empty()) return false;
    return std::all_of(atoms_.begin(), atoms_.end(), [](Atom& atom) { return Saturate(atom); });
  }
  std::vector<Atom>& Atoms() { return atoms_; }
  std::size_t Bonds() const { return bonds_; }
  std::size_t Parts() const { return parts_; }

 private:
  static constexpr std::size_t kNone = ~std::size_t{0};
  struct Opened {
    std::size_t atom;
    double order;
  };

  bool Next();
  bool Ring(char label);
  bool Bracket();
  bool Bare();
  bool Add(std::string symbol, int hydrogens);
  void Join(std::size_t a, std::size_t b, double order);
  static bool Saturate(Atom& atom);

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<Atom> atoms_;
  std::size_t previous_ = kNone;
  double order_ = 0.0;  // of the next bond; 0 if it is not written
  std::vector<std::size_t> open_;
  std::map<char, Opened> rings_;
  std::size_t bonds_ = 0;
  std::size_t parts_ = 0;
};

bool SmilesReader::Next() {
  char const c = text_[at_];
  if (IsDigit(c)) return Ring(text_[at_++]);
  if (c == '[') return Bracket();
  if (std::isalpha(static_cast<unsigned char>(c)) != 0) return Bare();
  ++at_;
  switch (c) {
    case '(': open_.push_back(previous_); return previous_ != kNone;
    case ')':
      if (open_.empty()) return false;
      previous_ = open_.back();
      open_.pop_back();
      return true;
    case '-': order_ = 1.0; return true;
    case '=': order_ = 2.0; return true;
    case '#': order_ = 3.0; return true;
    case ':': order_ = 1.5; return true;
    case '.': previous_ = kNone; return true;
    case '/':
    case '\\': return true;
    default: return false;
  }
}

bool SmilesReader::Ring(char label) {
  if (previous_ == kNone) return false;
  auto const opened = rings_.find(label);
  if (opened == rings_.end()) {
    rings_[label] = {previous_, order_};
  } else {
    if (opened->second.atom == previous_) return false;
    Join(opened->second.atom, previous_, std::max(order_, opened->second.order));
    rings_.erase(opened);
  }
  order_ = 0.0;
  return true;
}

bool SmilesReader::Bare() {
  std::string symbol(1, text_[at_++]);
  bool const isPair = at_ < text_.size() && ((symbol == "C" && text_[at_] == 'l') ||
                                             (symbol == "B" && text_[at_] == 'r'));
  if (isPair) symbol += text_[at_++];
  return Add(std::move(symbol), -1);
}

// [Si], [NH4+], [C@H], [O-]
bool SmilesReader::Bracket() {
  std::size_t const end = text_.find(']', at_);
  if (end == std::string_view::npos) return false;
  std::string_view inside = text_.substr(at_ + 1, end - at_ - 1);
  at_ = end + 1;
  if (inside.empty() || std::isalpha(static_cast<unsigned char>(inside[0])) == 0) return false;
  std::size_t length = 1;
  if (inside.size() > 1 && std::islower(static_cast<unsigned char>(inside[1])) != 0) length = 2;
  std::string symbol(inside.substr(0, length));
  inside.remove_prefix(length);
  while (!inside.empty() && inside[0] == '@') inside.remove_prefix(1);
  int hydrogens = 0;
  if (!inside.empty() && inside[0] == 'H') {
    hydrogens = inside.size() > 1 && IsDigit(inside[1]) ? inside[1] - '0' : 1;
  }
  return Add(std::move(symbol), hydrogens);
}

bool SmilesReader::Add(std::string symbol, int hydrogens) {
  Atom atom;
  atom.isAromatic = std::islower(static_cast<unsigned char>(symbol[0])) != 0;
  symbol[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(symbol[0])));
  atom.element = std::move(symbol);
  atom.hydrogens = hydrogens;
  atoms_.push_back(std::move(atom));
  std::size_t const own = atoms_.size() - 1;
  if (previous_ != kNone) {
    Join(previous_, own, order_);
  } else {
    ++parts_;
  }
  previous_ = own;
  order_ = 0.0;
  return true;
}

void SmilesReader::Join(std::size_t a, std::size_t b, double order) {
  if (order == 0.0) order = atoms_[a].isAromatic && atoms_[b].isAromatic ? 1.5 : 1.0;
  atoms_[a].bonds.push_back({b, order});
  atoms_[b].bonds.push_back({a, order});
  ++bonds_;
}

// Adds the hydrogen that is not written.
bool SmilesReader::Saturate(Atom& atom) {
  static std::map<std::string, std::vector<int>> const kValences = {
      {"B", {3}},       {"C", {4}}, {"N", {3, 5}}, {"O", {2}},  {"P", {3, 5}},
      {"S", {2, 4, 6}}, {"F", {1}}, {"Cl", {1}},   {"Br", {1}}, {"I", {1}}};
  if (atom.hydrogens >= 0) return true;
  auto const valences = kValences.find(atom.element);
  if (valences == kValences.end()) return false;
  double bound = 0.0;
  for (Bond const& bond : atom.bonds) bound += bond.order;
  int const used = static_cast<int>(bound + 0.01);
  for (int const valence : valences->second) {
    if (valence < used) continue;
    atom.hydrogens = valence - used;
    return true;
  }
  return false;
}

// Whether the atom can be reached from a neighbour without their bond.
bool IsInRing(std::vector<Atom> const& atoms, std::size_t own) {
  for (Bond const& first : atoms[own].bonds) {
    std::vector<bool> isSeen(atoms.size(), false);
    std::vector<std::size_t> waiting = {first.to};
    isSeen[first.to] = true;
    while (!waiting.empty()) {
      std::size_t const place = waiting.back();
      waiting.pop_back();
      for (Bond const& bond : atoms[place].bonds) {
        if (bond.to == own && place != first.to) return true;
        if (bond.to == own || isSeen[bond.to]) continue;
        isSeen[bond.to] = true;
        waiting.push_back(bond.to);
      }
    }
  }
  return false;
}

class GroupCounter {
 public:
  explicit GroupCounter(std::vector<Atom> const& atoms) : atoms_(atoms) {}

  GroupCounts Count() {
    for (Atom const& atom : atoms_) {
      if (atom.element == "C") Add(OfCarbon(atom));
      if (atom.element == "O") OfOxygen(atom);
      if (atom.element == "N") Add(OfNitrogen(atom));
      if (atom.element == "S") Add(atom.hydrogens > 0 ? Group::kSh : Group::kS);
      if (atom.element == "F") Add(Group::kF);
      if (atom.element == "Cl") Add(Group::kCl);
      if (atom.element == "Br") Add(Group::kBr);
      if (atom.element == "I") Add(Group::kI);
    }
    return counts_;
  }

 private:
  void Add(Group group) { counts_[static_cast<std::size_t>(group)] += 1.0; }
  // The bonds of an order to an element, or to all.
  int BondsOf(Atom const& atom, double order, char const* element = nullptr) const {
    return static_cast<int>(
        std::count_if(atom.bonds.begin(), atom.bonds.end(), [&](Bond const& bond) {
          return bond.order == order && (element == nullptr || atoms_[bond.to].element == element);
        }));
  }
  bool IsCarbonyl(Atom const& atom) const {
    return atom.element == "C" && BondsOf(atom, 2.0, "O") == 1 && BondsOf(atom, 2.0) == 1;
  }
  bool IsAromatic(Atom const& atom) const {
    return atom.isAromatic || (atom.isInRing && BondsOf(atom, 2.0, "C") == 1);
  }
  Group OfCarbon(Atom const& atom) const;
  Group OfCarbonyl(Atom const& atom) const;
  Group OfNitrogen(Atom const& atom) const;
  void OfOxygen(Atom const& atom);

  std::vector<Atom> const& atoms_;
  GroupCounts counts_{};
};

// One of four groups by the number of hydrogen atoms.
Group ByHydrogen(Atom const& atom, Group three, Group two, Group one, Group none) {
  return atom.hydrogens >= 3 ? three : atom.hydrogens == 2 ? two : atom.hydrogens == 1 ? one : none;
}

Group GroupCounter::OfCarbonyl(Atom const& atom) const {
  for (Bond const& bond : atom.bonds) {
    Atom const& other = atoms_[bond.to];
    if (bond.order == 1.0 && other.element == "O") {
      return other.hydrogens > 0 ? Group::kAcid : Group::kEster;
    }
  }
  return atom.hydrogens > 0 ? Group::kAldehyde : Group::kKetone;
}

Group GroupCounter::OfCarbon(Atom const& atom) const {
  if (BondsOf(atom, 3.0) > 0 || BondsOf(atom, 2.0) > 1) return Group::kTriple;
  if (IsCarbonyl(atom)) return OfCarbonyl(atom);
  if (IsAromatic(atom)) return atom.hydrogens > 0 ? Group::kAromaticCh : Group::kAromaticC;
  if (BondsOf(atom, 2.0) == 1) {
    return ByHydrogen(atom, Group::kDoubleCh2, Group::kDoubleCh2, Group::kDoubleCh,
                      Group::kDoubleC);
  }
  if (atom.isInRing) {
    return ByHydrogen(atom, Group::kRingCh2, Group::kRingCh2, Group::kRingCh, Group::kRingC);
  }
  return ByHydrogen(atom, Group::kCh3, Group::kCh2, Group::kCh, Group::kC);
}

Group GroupCounter::OfNitrogen(Atom const& atom) const {
  if (BondsOf(atom, 3.0) > 0) return Group::kNitrile;
  if (BondsOf(atom, 2.0, "O") > 0) return Group::kNitro;
  return ByHydrogen(atom, Group::kNh2, Group::kNh2, Group::kNh, Group::kN);
}

// The oxygen of carbonyl groups, acids and esters is counted with their carbon.
void GroupCounter::OfOxygen(Atom const& atom) {
  if (BondsOf(atom, 2.0) > 0) return;
  bool isOfRing = false;
  for (Bond const& bond : atom.bonds) {
    if (IsCarbonyl(atoms_[bond.to])) return;
    isOfRing = isOfRing || IsAromatic(atoms_[bond.to]);
  }
  if (atom.hydrogens > 0) return Add(isOfRing ? Group::kPhenol : Group::kHydroxyl);
  Add(atom.isInRing ? Group::kRingOxygen : Group::kEther);
}

}  // namespace

std::optional<GroupCounts> GroupsOf(std::string_view smiles, Composition const& formula) {
  while (!smiles.empty() && smiles.back() == ' ') smiles.remove_suffix(1);
  SmilesReader reader(smiles);
  if (!reader.Read()) return std::nullopt;
  std::vector<Atom>& atoms = reader.Atoms();
  Composition counted;
  for (std::size_t i = 0; i < atoms.size(); ++i) {
    ++counted[atoms[i].element];
    if (atoms[i].hydrogens > 0) counted["H"] += atoms[i].hydrogens;
    atoms[i].isInRing = IsInRing(atoms, i);
  }
  if (counted != formula) return std::nullopt;
  GroupCounts counts = GroupCounter(atoms).Count();
  counts[static_cast<std::size_t>(Group::kRings)] =
      static_cast<double>(reader.Bonds() + reader.Parts() - atoms.size());
  return counts;
}

}  // namespace zel
