// From the tables into the library: one function per kind of bank.
#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "tour.h"

namespace tour {
namespace {

constexpr double kAtmosphere = 101.325;  // kPa
double const kNone = zel::gen_GetUndefDouble();

class Writer {
 public:
  Writer(zel::LibFile* library, std::string data, Components const& components)
      : maint_(zel::LibMaint::NewLibMaint(library)),
        key_(zel::Key::NewKey()),
        data_(std::move(data)),
        components_(components) {}

  Table Read(char const* file) const { return Table(data_ + "/" + file); }

  void Begin(char const* type, char const* name = kName) {
    if (!maint_->CreateBank(type, name, 0)) {
      throw std::runtime_error(std::string("cannot create bank ") + type);
    }
    name_ = name;
    count_ = 0;
  }
  void End(char const* type, char const* what) {
    std::printf("  %-8s  %5d  %s\n", type, count_, what);
  }

  template <typename Face>
  void WritePair(Bank<Face> const& bank, Table const& table, std::size_t row) {
    key_->SetKey(Number(table.Text(row, "i")), Number(table.Text(row, "j")));
    Write(bank.Def());
  }
  template <typename Face>
  void WriteComponent(Bank<Face> const& bank, Table const& table, std::size_t row) {
    key_->SetKey(Number(table.Text(row, "component")));
    Write(bank.Def());
  }
  void WriteWords(zel::IZelBankDef* bank, std::initializer_list<std::int32_t> words) {
    key_->SetKeyWords(static_cast<long>(words.size()), words.begin());
    Write(bank);
  }

 private:
  long Number(std::string const& id) const { return components_.ById(id).number; }
  void Write(zel::IZelBankDef* bank) {
    if (!maint_->WriteItem(bank, name_, key_.get())) throw std::runtime_error("cannot write item");
    ++count_;
  }

  Maint maint_;
  Key key_;
  std::string data_;
  Components const& components_;
  char const* name_ = kName;
  int count_ = 0;
};

// An asymmetric pair is stored under the lower number; given in the other order it is turned round
// on the way, so the tables' order does not matter.
void WriteActivityModels(Writer& writer) {
  Bank<zel::IZelNrtl> nrtl("NRTL", zel::IID_IZelNrtl);
  Table const n = writer.Read("nrtl.txt");
  writer.Begin("NRTL");
  for (std::size_t i = 0; i < n.Rows(); ++i) {
    nrtl->PutData(0, n.Real(i, "bij"), 0, 0, 0, 0, 0, n.Real(i, "bji"), 0, 0, 0, 0,
                  n.Real(i, "alphaij"), 0, kNone, kNone, kAtmosphere, kAtmosphere,
                  n.Int(i, "refCode"));
    writer.WritePair(nrtl, n, i);
  }
  writer.End("NRTL", "pairs of the NRTL model");

  constexpr std::int32_t kCalPerMol = 24013, kPlainWilson = 0, kVolumesAt25C = 1;
  Bank<zel::IZelWilson> wilson("WILSON", zel::IID_IZelWilson);
  Table const w = writer.Read("wilson.txt");
  writer.Begin("WILSON");
  for (std::size_t i = 0; i < w.Rows(); ++i) {
    wilson->PutData(kCalPerMol, kPlainWilson, kVolumesAt25C, w.Real(i, "aij"), w.Real(i, "aji"),
                    kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone,
                    kNone, kAtmosphere, kAtmosphere, w.Int(i, "refCode"));
    writer.WritePair(wilson, w, i);
  }
  writer.End("WILSON", "pairs of the Wilson model");

  Bank<zel::IZelUniquac> uniquac("UNIQUAC", zel::IID_IZelUniquac);
  Table const u = writer.Read("uniquac.txt");
  writer.Begin("UNIQUAC");
  for (std::size_t i = 0; i < u.Rows(); ++i) {
    uniquac->PutData(u.Real(i, "aij"), 0, 0, 0, u.Real(i, "aji"), 0, 0, 0, kNone, kNone,
                     kAtmosphere, kAtmosphere, u.Int(i, "refCode"));
    writer.WritePair(uniquac, u, i);
  }
  writer.End("UNIQUAC", "pairs of the UNIQUAC model");
}

template <typename Face>
void WriteKij(Writer& writer, char const* type, zel::ZelIid const& id, char const* file,
              char const* what) {
  Bank<Face> bank(type, id);
  Table const table = writer.Read(file);
  writer.Begin(type);
  for (std::size_t i = 0; i < table.Rows(); ++i) {
    std::array<double, 4> const kij = {table.Real(i, "kij"), kNone, kNone, kNone};
    bank->PutData(kij.data(), table.Real(i, "tMin"), table.Real(i, "tMax"), kNone, kNone,
                  table.Int(i, "refCode"));
    writer.WritePair(bank, table, i);
  }
  writer.End(type, what);
}

void WriteEquationsOfState(Writer& writer) {
  WriteKij<zel::IZelPrO>(writer, "PRO", zel::IID_IZelPrO, "pr_kij.txt", "pairs of Peng-Robinson");
  WriteKij<zel::IZelSrkO>(writer, "SRKO", zel::IID_IZelSrkO, "srk_kij.txt",
                          "pairs of Soave-Redlich-Kwong");
  Bank<zel::IZelLkp> lkp("LKP", zel::IID_IZelLkp);
  Table const l = writer.Read("lkp_kij.txt");
  writer.Begin("LKP");
  for (std::size_t i = 0; i < l.Rows(); ++i) {
    lkp->PutData(l.Real(i, "kij"), l.Int(i, "refCode"));
    writer.WritePair(lkp, l, i);
  }
  writer.End("LKP", "pairs of Lee-Kesler-Ploecker");

  Bank<zel::IZelPcSaft> saft("PCSAFT", zel::IID_IZelPcSaft);
  Table const s = writer.Read("pcsaft_kij.txt");
  writer.Begin("PCSAFT");
  for (std::size_t i = 0; i < s.Rows(); ++i) {
    std::array<double, 4> const kij = {s.Real(i, "kij"), kNone, kNone, kNone};
    saft->PutData(kij.data(), kNone, kNone, s.Int(i, "refCode"));
    writer.WritePair(saft, s, i);
  }
  writer.End("PCSAFT", "pairs of PC-SAFT");

  Bank<zel::IZelPcSaftPure> pure("PCSAFTPU", zel::IID_IZelPcSaftPure);
  Table const p = writer.Read("pcsaft_pure.txt");
  writer.Begin("PCSAFTPU");
  for (std::size_t i = 0; i < p.Rows(); ++i) {
    pure->PutData(p.Real(i, "m"), p.Real(i, "sigma"), p.Real(i, "epsilon"), p.Real(i, "epsHB"),
                  p.Real(i, "volHB"), p.Int(i, "refCode"));
    writer.WriteComponent(pure, p, i);
  }
  writer.End("PCSAFTPU", "components of PC-SAFT");
}

void WriteSideBanks(Writer& writer) {
  Bank<zel::IZelCostald> costald("COSTALD", zel::IID_IZelCostald);
  Table const c = writer.Read("costald.txt");
  writer.Begin("COSTALD");
  for (std::size_t i = 0; i < c.Rows(); ++i) {
    costald->PutData(c.Real(i, "Tc"), c.Real(i, "omega"), c.Real(i, "charVol"));
    writer.WriteComponent(costald, c, i);
  }
  writer.End("COSTALD", "components: characteristic volumes");

  Bank<zel::IZelRackett> rackett("RACKETT", zel::IID_IZelRackett);
  Table const r = writer.Read("rackett.txt");
  writer.Begin("RACKETT");
  for (std::size_t i = 0; i < r.Rows(); ++i) {
    rackett->PutData(r.Real(i, "zRa"));
    writer.WriteComponent(rackett, r, i);
  }
  writer.End("RACKETT", "components: Rackett parameters");

  Bank<zel::IZelOctane> octane("OCTANE", zel::IID_IZelOctane);
  Table const o = writer.Read("octane.txt");
  writer.Begin("OCTANE");
  for (std::size_t i = 0; i < o.Rows(); ++i) {
    octane->PutData(kNone, kNone, kNone, kNone, kNone, o.Real(i, "MON"), o.Real(i, "RON"));
    writer.WriteComponent(octane, o, i);
  }
  writer.End("OCTANE", "components: octane numbers");
}

// A second bank of a type, under another name. With the flag set a node takes 4 entries instead of
// what it has room for, so that a handful of items makes a tree of several nodes to look at.
void WriteSmallBank(Writer& writer) {
  constexpr char const* kAlkanes[] = {"METHANE", "ETHANE",   "PROPANE", "NBUTANE", "NPENTANE",
                                      "NHEXANE", "NHEPTANE", "NOCTANE", "NNONANE", "NDECANE"};
  Bank<zel::IZelRackett> rackett("RACKETT", zel::IID_IZelRackett);
  Table const table = writer.Read("rackett.txt");
  zel::SetDeleteTestFlag(true);
  writer.Begin("RACKETT", kSmallName);
  zel::SetDeleteTestFlag(false);
  for (std::size_t i = 0; i < table.Rows(); ++i) {
    if (std::find(std::begin(kAlkanes), std::end(kAlkanes), table.Text(i, "component")) ==
        std::end(kAlkanes)) {
      continue;
    }
    rackett->PutData(table.Real(i, "zRa"));
    writer.WriteComponent(rackett, table, i);
  }
  writer.End("RACKETT", "normal alkanes alone, as a second bank");
}

// Groups are plain numbers. One tree holds the set as a whole (no group in the key), its groups
// (one) and their interactions (two).
void WriteGroups(Writer& writer) {
  Table const groups = writer.Read("unifac_groups.txt");
  Bank<zel::IZelGroupDes> names("GRPDESC", zel::IID_IZelGroupDes);
  writer.Begin("GRPDESC");
  for (std::size_t i = 0; i < groups.Rows(); ++i) {
    names->PutData(groups.Text(i, "name").c_str(), "", "");
    writer.WriteWords(names.Def(), {groups.Int(i, "group")});
  }
  writer.End("GRPDESC", "names of UNIFAC groups");

  Table const pairs = writer.Read("unifac_interactions.txt");
  Bank<zel::IZelUnfOrig> unifac("UNFORIG", zel::IID_IZelUnfOrig);
  writer.Begin("UNFORIG");
  unifac->PutContext(kName, "orig-public");
  writer.WriteWords(unifac.Def(), {});
  for (std::size_t i = 0; i < groups.Rows(); ++i) {
    unifac.Def()->Clear();
    unifac->PutGroup(groups.Int(i, "main"), groups.Real(i, "r"), groups.Real(i, "q"),
                     groups.Int(i, "refCode"));
    writer.WriteWords(unifac.Def(), {groups.Int(i, "group")});
  }
  unifac.Def()->Clear();
  for (std::size_t i = 0; i < pairs.Rows(); ++i) {
    unifac->PutInteraction(pairs.Real(i, "aij"), pairs.Real(i, "aji"), kNone, kNone,
                           pairs.Int(i, "refCode"));
    writer.WriteWords(unifac.Def(), {pairs.Int(i, "main_i"), pairs.Int(i, "main_j")});
  }
  writer.End("UNFORIG", "the set, its groups and their interactions");

  Table const structures = writer.Read("unifac_structures.txt");
  Bank<zel::IZelStruct> structure("STRUCT", zel::IID_IZelStruct);
  writer.Begin("STRUCT");
  for (std::size_t i = 0; i < structures.Rows(); ++i) {
    std::array<std::int32_t, 10> numbers{};
    std::array<std::int32_t, 10> counts{};
    std::int32_t count = 0;
    for (std::string const& part : Split(structures.Text(i, "groups"), ',')) {
      auto const at = static_cast<std::size_t>(count++);
      std::sscanf(part.c_str(), "%d(%d)", &numbers.at(at), &counts.at(at));
    }
    structure->PutData(count, numbers.data(), counts.data());
    writer.WriteComponent(structure, structures, i);
  }
  writer.End("STRUCT", "components built from groups");
}

}  // namespace

void WriteBanks(zel::LibFile* library, std::string const& data, Components const& components) {
  Writer writer(library, data, components);
  WriteActivityModels(writer);
  WriteEquationsOfState(writer);
  WriteSideBanks(writer);
  WriteSmallBank(writer);
  WriteGroups(writer);
}

}  // namespace tour
