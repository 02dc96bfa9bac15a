// The desk's face as a host in C++17 uses it: the installed headers and the library ZelDesk only.
#include <gtest/gtest.h>
#include <zelaccess/Desk.h>
#include <zelaccess/DeskChanges.h>
#include <zelaccess/ZelAccess.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <thread>

#include "desk_fixture.h"

namespace desk = zel::desk;

namespace {

TEST_F(DeskTest, AConstantHasValueUnitSourceAndState) {
  desk::Libraries const libraries(Paths({"crc.lb1", "perry.lb1"}));
  desk::Component const ethanol = libraries.Component("ETHANOL");
  EXPECT_EQ(ethanol.Identity().name, "Ethanol");
  EXPECT_EQ(ethanol.Identity().cas, "64-17-5");
  auto const nbp = ethanol.Constant(zel::Constant::NBP);
  ASSERT_TRUE(nbp);
  EXPECT_NEAR(nbp->value, 351.4, 0.2);
  EXPECT_EQ(nbp->unit, "K");
  EXPECT_NE(nbp->source.find("crc.lb1"), std::string::npos);
  EXPECT_EQ(nbp->state, zel::constantStored);
  auto const inCelsius = ethanol.Constant(zel::Constant::NBP, "degC");
  ASSERT_TRUE(inCelsius);
  EXPECT_NEAR(inCelsius->value, nbp->value - 273.15, 1e-9);
  EXPECT_EQ(inCelsius->unit, "C");
  auto const acentric = ethanol.Constant(zel::Constant::ACENTRIC);
  ASSERT_TRUE(acentric);
  EXPECT_EQ(acentric->unit, "");
  EXPECT_FALSE(ethanol.Constant(zel::Constant::CHAO));
  EXPECT_THROW(ethanol.Constant(zel::Constant::NBP, "bar"), desk::UnknownWord);
  EXPECT_THROW(ethanol.Constant(zel::Constant::ACENTRIC, "K"), desk::UnknownWord);
}

TEST_F(DeskTest, DataSayWhatIsCitedForThem) {
  desk::Libraries const libraries(Paths({"perry.lb1", "crc.lb1", "sample.lb1"}));
  desk::Component const ethanol = libraries.Component("ETHANOL");
  auto const nbp = ethanol.Constant(zel::Constant::NBP);
  ASSERT_TRUE(nbp);
  EXPECT_EQ(nbp->code, 54U);
  EXPECT_EQ(nbp->citation.substr(0, 52), "CRC Handbook of Chemistry and Physics, 95th ed., 201");
  EXPECT_EQ(nbp->doi, "10.1201/b17118");
  auto const pressure = ethanol.Correlation(zel::Correlation::VaporPressure);
  ASSERT_TRUE(pressure);
  EXPECT_EQ(pressure->citation.substr(0, 15), "Perry's Chemica");
  auto const carbons = ethanol.Constant(zel::Constant::CNUM);
  ASSERT_TRUE(carbons);
  EXPECT_EQ(carbons->citation, "") << "it is derived";
  desk::Item const nrtl = libraries.Pair("NRTL", "ETHANOL", "WATER");
  EXPECT_EQ(nrtl.Citation().substr(0, 7), "Gmehlin");
  EXPECT_EQ(nrtl.Doi(), "");
  EXPECT_EQ(nrtl.Equation(), "tau_ij = aij + bij/T + cij/T^2, alpha = alphaij + betaij T");
  EXPECT_EQ(nrtl.Field("bij").unit, "K");
  EXPECT_EQ(nrtl.Field("bij").meaning, "published energy A12, divided by R");
  EXPECT_EQ(nrtl.Field("alphaij").unit, "-");
  EXPECT_EQ(nrtl.Field("dij").meaning, "");
  EXPECT_EQ(nrtl.Field("tMin").unit, "K");
}

TEST_F(DeskTest, AFilledInConstantSaysSo) {
  desk::Libraries const libraries(Paths({"crc.lb1", "perry.lb1"}));
  desk::Component const ethanol = libraries.Component("64-17-5");
  auto const carbons = ethanol.Constant(zel::Constant::CNUM);
  ASSERT_TRUE(carbons);
  EXPECT_EQ(carbons->value, 2.0);
  EXPECT_EQ(carbons->state, zel::constantFilledIn);
  EXPECT_NE(carbons->source, "");
}

TEST_F(DeskTest, ValuesAreThoseOfTheLibraryInAnyUnit) {
  desk::Libraries const libraries(Paths({"perry.lb1"}));
  desk::Component const ethanol = libraries.Component("ETHANOL");
  auto const p = ethanol.Evaluate(zel::Correlation::VaporPressure, {298.15, 351.4, 533.15, 100.0});
  EXPECT_EQ(p.unit, "kPa");
  EXPECT_EQ(p.temperatureUnit, "K");
  EXPECT_NEAR(p.values[0], 7.924095, 1e-6);
  EXPECT_NEAR(p.derivatives[0], 0.4586987, 1e-7);
  EXPECT_EQ(p.statuses, (std::vector<std::int32_t>{0, 0, 1, -1}));
  EXPECT_NEAR(p.values[2], 8212.314, 1e-3);  // extrapolated
  auto const shown = ethanol.Evaluate(zel::Correlation::VaporPressure, {25.0}, {"bar", "degC", 1});
  EXPECT_NEAR(shown.values[0], p.values[0] / 100.0, 1e-15);
  EXPECT_NEAR(shown.derivatives[0], p.derivatives[0] / 100.0, 1e-12);
  EXPECT_EQ(shown.unit, "bar");
  // A gauge pressure has another zero and the same slope; a degree F is 5/9 of a K.
  auto const gauge = ethanol.Evaluate(zel::Correlation::VaporPressure, {77.0}, {"barg", "F", 1});
  EXPECT_NEAR(gauge.values[0], shown.values[0] - 1.01325, 1e-12);
  EXPECT_NEAR(gauge.derivatives[0], shown.derivatives[0] / 1.8, 1e-12);
  auto const second = ethanol.Evaluate(zel::Correlation::VaporPressure, {298.15}, {"", "K", 2});
  auto const secondInF = ethanol.Evaluate(zel::Correlation::VaporPressure, {77.0}, {"", "F", 2});
  EXPECT_NEAR(secondInF.derivatives[0], second.derivatives[0] / (1.8 * 1.8), 1e-12);
  EXPECT_TRUE(ethanol.Evaluate(zel::Correlation::VaporPressure, {}).values.empty());
}

TEST_F(DeskTest, AValueThatIsNotThereIsNotANumber) {
  desk::Libraries const libraries(Paths({"perry.lb1"}));
  desk::Component const ethanol = libraries.Component("ETHANOL");
  double const nan = std::nan("");
  auto const p = ethanol.Evaluate(zel::Correlation::VaporPressure, {nan, 300.0});
  EXPECT_TRUE(std::isnan(p.values[0]));
  EXPECT_TRUE(std::isfinite(p.values[1]));
  auto const cold =
      ethanol.Evaluate(zel::Correlation::VaporPressure, {-1000.0, -273.2, -273.1}, {"bar", "C", 1});
  EXPECT_TRUE(std::isnan(cold.values[0]));
  EXPECT_TRUE(std::isnan(cold.derivatives[0]));
  EXPECT_TRUE(std::isnan(cold.values[1]));
  EXPECT_FALSE(std::isnan(cold.values[2])) << "extrapolated";
  EXPECT_THROW(ethanol.Evaluate(zel::Correlation::Dielectric, {300.0}), desk::MissingDatum);
  EXPECT_FALSE(ethanol.Correlation(zel::Correlation::Dielectric));
  EXPECT_THROW(ethanol.Evaluate(zel::Correlation::VaporPressure, {300.0}, {"W", "K", 1}),
               desk::UnknownWord);
  EXPECT_THROW(ethanol.Evaluate(zel::Correlation::VaporPressure, {300.0}, {"", "bar", 1}),
               desk::UnknownWord);
  EXPECT_THROW(ethanol.Evaluate(zel::Correlation::VaporPressure, {300.0}, {"", "K", 4}),
               desk::UnknownWord);
  EXPECT_THROW(ethanol.Evaluate(static_cast<zel::Correlation>(99), {300.0}), desk::UnknownWord);
  EXPECT_FALSE(ethanol.Constant(static_cast<zel::Constant>(99)));
}

TEST_F(DeskTest, ARecordHasEquationCoefficientsAndRange) {
  desk::Libraries const libraries(Paths({"perry.lb1"}));
  auto const record = libraries.Component("ETHANOL").Correlation(zel::Correlation::VaporPressure);
  ASSERT_TRUE(record);
  EXPECT_EQ(record->equation, 20);
  EXPECT_FALSE(record->coefficients.empty());
  EXPECT_EQ(record->tMin, 159.05);
  EXPECT_EQ(record->tMax, 514.0);
  EXPECT_NE(record->source.find("perry.lb1"), std::string::npos);
}

TEST_F(DeskTest, APairIsInTheOrderInWhichItIsAskedFor) {
  // sample.lb1 has no components: the IDs come from the other library.
  desk::Libraries const libraries(Paths({"sample.lb1", "perry.lb1"}));
  desk::Item const one = libraries.Pair("NRTL", "ETHANOL", "WATER");
  desk::Item const other = libraries.Pair("nrtl", "7732-18-5", "ETHANOL");
  ASSERT_TRUE(one.Value("bij"));
  EXPECT_EQ(one.Value("bij"), other.Value("bji"));
  EXPECT_EQ(one.Value("BJI"), other.Value("bij"));
  EXPECT_NEAR(*other.Value("bij"), 624.867, 1e-3);
  EXPECT_NE(one.Source().find("sample.lb1:NRTL:SAMPLE"), std::string::npos);
  EXPECT_FALSE(one.Fields().empty());
  EXPECT_THROW(one.Value("cij9"), desk::UnknownWord);
  EXPECT_THROW(libraries.Pair("NRTL", "ETHANOL", "ETHANOL"), desk::MissingItem);
  EXPECT_THROW(libraries.Pair("NTRL", "ETHANOL", "WATER"), desk::UnknownWord);
  EXPECT_THROW(libraries.Item("NRTL", {"ETHANOL"}), desk::Error);
}

// A library of components with own numbers, and pairs if it has some.
void MakeOwn(std::string const& path, std::vector<std::string> const& banks) {
  std::string const document = path + ".xml";
  zel::openErrors error = zel::openFailed;
  zel::Handle<zel::LibFile> const file(
      zel::LibFile::NewLibFile(zel::libKind11, (path + ".lb1").c_str(), error));
  ASSERT_TRUE(file);
  zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(file.get()));
  for (std::string const& bank : banks) {
    std::ofstream(document) << bank;
    ASSERT_TRUE(maint->Import(document.c_str(), false));
  }
}

TEST_F(DeskTest, APairIsThatOfTheSubstancesInItsLibrary) {
  auto const component = [](char const* number, char const* id) {
    return std::string("<comp><id number=\"") + number + "\" name=\"" + id + "\"> " + id +
           " </id></comp>";
  };
  MakeOwn(Path("n1"), {"<bank type=\"PURECOMP\" name=\"A\">" + component("21000000", "FOO") +
                       component("21000005", "ETHANOL") + "</bank>"});
  MakeOwn(Path("n2"), {"<bank type=\"PURECOMP\" name=\"B\">" + component("21000000", "BAR") +
                           component("21000001", "BAZ") + "</bank>",
                       "<bank type=\"VANLAAR\" name=\"P\"><item><keys> 21000000 21000001 </keys>"
                       "<aij>1</aij></item></bank>"});
  desk::Libraries const libraries(Paths({"n1.lb1", "n2.lb1"}));
  EXPECT_EQ(libraries.Pair("VANLAAR", "BAR", "BAZ").Value("aij"), 1.0);
  EXPECT_THROW(libraries.Pair("VANLAAR", "FOO", "BAZ"), desk::MissingItem);
  EXPECT_THROW(libraries.Pair("VANLAAR", "21000000", "BAZ"), desk::MissingItem) << "it is FOO";
  // ETHANOL has an own number in the first library; the last one has pairs with that of the second.
  desk::Libraries const mixed(Paths({"n1.lb1", "perry.lb1", "sample.lb1"}));
  EXPECT_NEAR(*mixed.Pair("NRTL", "WATER", "ETHANOL").Value("bij"), 624.867, 1e-3);
}

TEST_F(DeskTest, ErrorsHaveFileAndReason) {
  desk::Libraries const libraries(Paths({"perry.lb1"}));
  try {
    libraries.Component("ETHANLO");
    FAIL();
  } catch (desk::MissingComponent const& error) {
    EXPECT_NE(std::string(error.what()).find("ETHANOL"), std::string::npos);
    EXPECT_EQ(std::string(error.what()).find("--"), std::string::npos);  // no option of a program
  }
  EXPECT_THROW(libraries.Component("64-17-6"), desk::MissingComponent);
  EXPECT_THROW(libraries.Component(""), desk::MissingComponent);
  try {
    desk::Libraries const none({Path("none.lb1")});
    FAIL();
  } catch (desk::OpenError const& error) {
    EXPECT_EQ(error.File(), Path("none.lb1"));
    EXPECT_EQ(error.Reason(), "not found");
    EXPECT_EQ(error.Code(), zel::openNotFound);
  }
  std::ofstream(Path("text.lb1")) << "this is not a library";
  EXPECT_THROW(desk::Libraries({Path("text.lb1")}), desk::OpenError);
}

TEST_F(DeskTest, ALibraryInUseIsAnErrorOfItsOwn) {
  zel::openErrors error = zel::openFailed;
  zel::Handle<zel::LibFile> const updater(
      zel::LibFile::OpenLibFile(zel::accUpdate, Path("crc.lb1").c_str(), "", error));
  ASSERT_TRUE(updater);
  EXPECT_THROW(desk::Libraries({Path("crc.lb1")}), desk::LibraryInUse);
}

TEST_F(DeskTest, AnOpenWaitsForALibraryInUse) {
  zel::openErrors error = zel::openFailed;
  zel::Handle<zel::LibFile> updater(
      zel::LibFile::OpenLibFile(zel::accUpdate, Path("crc.lb1").c_str(), "", error));
  ASSERT_TRUE(updater);
  desk::LibrariesOptions options;
  options.waitSeconds = 0.1;
  EXPECT_THROW(desk::Libraries({Path("crc.lb1")}, options), desk::LibraryInUse);
  options.waitSeconds = 60.0;
  std::thread end([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    updater.reset();
  });
  EXPECT_NO_THROW(desk::Libraries({Path("crc.lb1")}, options).Component("ETHANOL"));
  end.join();
}

TEST_F(DeskTest, ADamagedBlockIsAnErrorWithTheLibrary) {
  fs::copy_file(Path("perry.lb1"), Path("bad.lb1"), fs::copy_options::overwrite_existing);
  fs::copy_file(Path("perry.lb2"), Path("bad.lb2"), fs::copy_options::overwrite_existing);
  fs::resize_file(Path("bad.lb2"), 1024);  // the records are in the second file
  bool failed = false;
  try {
    desk::Libraries const libraries({Path("bad.lb1")});
    libraries.Component("ETHANOL");
  } catch (desk::DamagedLibrary const& error) {
    failed = std::string(error.what()).find("bad.lb1") != std::string::npos;
  }
  EXPECT_TRUE(failed);
  EXPECT_THROW(desk::Libraries({Path("bad.lb1")}).Components(), desk::DamagedLibrary);
}

TEST_F(DeskTest, SourcesThatMeanDifferentSubstancesAreRefused) {
  // In crc.lb1 the number of ethanol becomes that of another substance's copy.
  fs::copy_file(Path("crc.lb1"), Path("other.lb1"), fs::copy_options::overwrite_existing);
  fs::copy_file(Path("crc.lb2"), Path("other.lb2"), fs::copy_options::overwrite_existing);
  {
    zel::openErrors error = zel::openFailed;
    zel::Handle<zel::LibFile> const file(
        zel::LibFile::OpenLibFile(zel::accUpdate, Path("other.lb1").c_str(), "", error));
    ASSERT_TRUE(file);
    zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(file.get()));
    zel::Handle<zel::Key> const key(zel::Key::NewKey());
    zel::BankFace<zel::IZelPureComp> component("PURECOMP", zel::IID_IZelPureComp);
    key->SetKey("ETHANOL");
    ASSERT_TRUE(maint->ReadItem(component.Def(), "CRC", key.get()));
    std::array<char[9], 12> ids{};
    std::snprintf(ids[0], sizeof(ids[0]), "ETHANOL");
    auto const cas = static_cast<std::int32_t>(static_cast<long>(zel::casn("71-43-2")));
    ASSERT_EQ(component->SetIdentity(10000007, cas, 0, ids.data(), "Benzene", "C6H6", 0),
              zel::kStatusOk);
    ASSERT_TRUE(maint->DeleteItem("PURECOMP", "CRC", key.get()));
    ASSERT_TRUE(maint->WriteItem(component.Def(), "CRC", key.get())) << maint->GetLastErrorText();
  }
  auto const paths = Paths({"other.lb1", "perry.lb1"});
  EXPECT_THROW(desk::Libraries(paths).Component("ETHANOL"), desk::ConflictingIdentity);
  desk::LibrariesOptions accepting;
  accepting.acceptIdentity = true;
  EXPECT_EQ(desk::Libraries(paths, accepting).Component("ETHANOL").Identity().name, "Benzene");
}

TEST_F(DeskTest, ObjectsMayOutliveTheirLibraries) {
  std::optional<desk::Component> ethanol;
  std::optional<desk::Item> pair;
  {
    desk::Libraries libraries(Paths({"sample.lb1", "perry.lb1"}));
    ethanol = libraries.Component("ETHANOL");
    pair = libraries.Pair("NRTL", "ETHANOL", "WATER");
    desk::Libraries const moved = std::move(libraries);
    EXPECT_GT(moved.Components().size(), 300u);
  }
  EXPECT_NEAR(ethanol->Evaluate(zel::Correlation::VaporPressure, {351.4}).values[0], 101.0851,
              1e-4);
  EXPECT_TRUE(pair->Value("bij"));
}

TEST_F(DeskTest, LibrariesAreFoundOnAPath) {
  desk::LibrariesOptions options;
  options.path = {(folder_ / "none").string(), folder_.string()};
  options.names = "crc";
  desk::Libraries const libraries({"sample", "perry:PERRY"}, options);
  EXPECT_EQ(libraries.Pair("NRTL", "ETHANOL", "WATER").Source(),
            Path("sample.lb1") + ":NRTL:SAMPLE");
  EXPECT_EQ(libraries.Component("ETHANOL").Correlation(zel::Correlation::VaporPressure)->source,
            "perry.lb1:PERRY");
  try {
    desk::Libraries const none({"pery"}, options);
    FAIL() << "found";
  } catch (desk::OpenError const& error) {
    EXPECT_EQ(error.File(), "pery");
    EXPECT_EQ(error.Code(), zel::openNotFound);
    EXPECT_NE(std::string(error.what()).find("did you mean perry?"), std::string::npos);
  }
}

TEST_F(DeskTest, NamesStayWhenOtherLibrariesClose) {
  desk::LibrariesOptions options;
  options.names = Path("perry.lb1");
  desk::Libraries const libraries(Paths({"sample.lb1"}), options);
  {
    desk::Libraries const others(Paths({"sample.lb1"}), options);
    EXPECT_TRUE(others.Pair("NRTL", "ETHANOL", "WATER").Value("bij"));
  }
  EXPECT_TRUE(libraries.Pair("NRTL", "ETHANOL", "WATER").Value("bij"));
}

// What the object remembers about components is that of its own libraries.
TEST_F(DeskTest, PairsAreFoundAgain) {
  for (char const* name : {"sample", "perry"}) {
    for (char const* ending : {".lb1", ".lb2"}) {
      fs::copy_file(Path(name + std::string(ending)), Path("my" + std::string(name) + ending));
    }
  }
  auto const find = [](desk::Libraries const& libraries, char const* component) {
    return libraries.Pair("NRTL", component, "WATER").Value("bij");
  };
  std::vector<std::string> const paths = Paths({"myperry.lb1", "mysample.lb1"});
  std::optional<double> bij;
  {
    desk::Libraries const libraries(paths);
    bij = find(libraries, "ETHANOL");
    for (int i = 0; i < 3; ++i) EXPECT_EQ(find(libraries, "ETHANOL"), bij);
    EXPECT_EQ(find(libraries, "64-17-5"), bij);
    EXPECT_THROW(find(libraries, "NEWID"), desk::Error);
    EXPECT_THROW(find(libraries, "NEWID"), desk::Error);
    EXPECT_NE(find(libraries, "METHANOL"), bij);
  }
  desk::Change change(paths[0]);
  change.Renumber("ETHANOL", 21000001);
  change.Commit();
  EXPECT_THROW(find(desk::Libraries(paths), "ETHANOL"), desk::MissingItem);
  desk::Change pairs(paths[1]);
  pairs.Renumber("10000007", 21000001);
  pairs.Commit();
  EXPECT_EQ(find(desk::Libraries(paths), "ETHANOL"), bij);
}

TEST_F(DeskTest, SearchPathIsThatOfTheEnvironmentOrTheFile) {
  std::string const file = Path("config");
  std::ofstream(file) << "path = libs:/srv/libs\n";
  ::setenv("ZEL_CONFIG", file.c_str(), 1);
  ::unsetenv("ZEL_PATH");
  EXPECT_EQ(desk::SearchPath(), (std::vector<std::string>{Path("libs"), "/srv/libs"}));
  ::setenv("ZEL_PATH", "a:b", 1);
  EXPECT_EQ(desk::SearchPath(), (std::vector<std::string>{"a", "b"}));
  ::unsetenv("ZEL_PATH");
  std::ofstream(file) << "pathh = libs\n";
  EXPECT_THROW(desk::SearchPath(), desk::Error);
  ::setenv("ZEL_CONFIG", "", 1);
  EXPECT_TRUE(desk::SearchPath().empty());
}

TEST_F(DeskTest, ComponentsAreListedOnce) {
  std::size_t const perry = desk::Libraries(Paths({"perry.lb1"})).Components().size();
  std::size_t const twice = desk::Libraries(Paths({"perry.lb1", "perry.lb1"})).Components().size();
  EXPECT_EQ(perry, twice);
  EXPECT_TRUE(desk::Libraries(Paths({"sample.lb1"})).Components().empty());
}

TEST_F(DeskTest, DifferentObjectsWorkInDifferentThreads) {
  std::array<double, 4> results{};
  std::vector<std::thread> threads;
  for (double& result : results) {
    threads.emplace_back([&result] {
      for (int i = 0; i < 50; ++i) {
        desk::Libraries const libraries(Paths({"crc.lb1", "perry.lb1"}));
        auto const ethanol = libraries.Component("ETHANOL");
        result += ethanol.Evaluate(zel::Correlation::VaporPressure, {351.4}, {"bar"}).values[0];
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (double const result : results) EXPECT_EQ(result, results[0]);
  EXPECT_GT(results[0], 0.0);
}

}  // namespace
