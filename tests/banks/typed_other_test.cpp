// The typed interfaces: the order of every argument list, compared with the fields by name.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/banks/bank_fields.h"

namespace zel {
namespace {

using test::Fields;
using test::Typed;

TEST(TypedData, ALPHA) {
  Typed<IZelAlpha> bank("ALPHA", IID_IZelAlpha);
  std::int32_t const eosIn[] = {1, 2, 3};
  std::int32_t eosOut[3];
  std::int32_t const formIn[] = {4, 5, 6};
  std::int32_t formOut[3];
  double const deviationIn[] = {7.5, 8.5, 9.5};
  double deviationOut[3];
  double const coefIn[] = {10.5, 11.5, 12.5, 13.5, 14.5, 15.5, 16.5, 17.5, 18.5};
  double coefOut[9];
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(eosIn, formIn, deviationIn, coefIn, 19), kStatusOk);
  EXPECT_EQ(bank->GetData(eosOut, formOut, deviationOut, coefOut, &refCodeOut), kStatusOk);
  EXPECT_TRUE(std::equal(eosIn, eosIn + 3, eosOut));
  EXPECT_TRUE(std::equal(formIn, formIn + 3, formOut));
  EXPECT_TRUE(std::equal(deviationIn, deviationIn + 3, deviationOut));
  EXPECT_TRUE(std::equal(coefIn, coefIn + 9, coefOut));
  EXPECT_EQ(refCodeOut, 19);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("eos", 3), (std::vector<std::int32_t>{1, 2, 3}));
  EXPECT_EQ(fields.Ints("form", 3), (std::vector<std::int32_t>{4, 5, 6}));
  EXPECT_EQ(fields.Reals("deviation", 3), (std::vector<double>{7.5, 8.5, 9.5}));
  EXPECT_EQ(fields.Reals("coef", 9),
            (std::vector<double>{10.5, 11.5, 12.5, 13.5, 14.5, 15.5, 16.5, 17.5, 18.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{19}));
}

TEST(TypedData, PUREBWRS) {
  Typed<IZelBwrsPure> bank("PUREBWRS", IID_IZelBwrsPure);
  double const coefIn[] = {1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5};
  double coefOut[11];
  EXPECT_EQ(bank->PutData(coefIn), kStatusOk);
  EXPECT_EQ(bank->GetData(coefOut), kStatusOk);
  EXPECT_TRUE(std::equal(coefIn, coefIn + 11, coefOut));
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("coef", 11),
            (std::vector<double>{1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5}));
}

TEST(TypedData, COSTALD) {
  Typed<IZelCostald> bank("COSTALD", IID_IZelCostald);
  double tcOut;
  double omegaOut;
  double charVolOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5), kStatusOk);
  EXPECT_EQ(bank->GetData(&tcOut, &omegaOut, &charVolOut), kStatusOk);
  EXPECT_EQ(tcOut, 1.5);
  EXPECT_EQ(omegaOut, 2.5);
  EXPECT_EQ(charVolOut, 3.5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("Tc", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("omega", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("charVol", 1), (std::vector<double>{3.5}));
}

TEST(TypedData, RACKETT) {
  Typed<IZelRackett> bank("RACKETT", IID_IZelRackett);
  double zRaOut;
  EXPECT_EQ(bank->PutData(1.5), kStatusOk);
  EXPECT_EQ(bank->GetData(&zRaOut), kStatusOk);
  EXPECT_EQ(zRaOut, 1.5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("zRa", 1), (std::vector<double>{1.5}));
}

TEST(TypedData, IDIMPURE) {
  Typed<IZelIDimPure> bank("IDIMPURE", IID_IZelIDimPure);
  double aiiOut;
  double biiOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3), kStatusOk);
  EXPECT_EQ(bank->GetData(&aiiOut, &biiOut, &refCodeOut), kStatusOk);
  EXPECT_EQ(aiiOut, 1.5);
  EXPECT_EQ(biiOut, 2.5);
  EXPECT_EQ(refCodeOut, 3);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("Aii", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("Bii", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{3}));
}

TEST(TypedData, OCTANE) {
  Typed<IZelOctane> bank("OCTANE", IID_IZelOctane);
  double pOut;
  double iOut;
  double aOut;
  double nOut;
  double oOut;
  double monOut;
  double ronOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5), kStatusOk);
  EXPECT_EQ(bank->GetData(&pOut, &iOut, &aOut, &nOut, &oOut, &monOut, &ronOut), kStatusOk);
  EXPECT_EQ(pOut, 1.5);
  EXPECT_EQ(iOut, 2.5);
  EXPECT_EQ(aOut, 3.5);
  EXPECT_EQ(nOut, 4.5);
  EXPECT_EQ(oOut, 5.5);
  EXPECT_EQ(monOut, 6.5);
  EXPECT_EQ(ronOut, 7.5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("p", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("i", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("a", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("n", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("o", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("MON", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("RON", 1), (std::vector<double>{7.5}));
}

TEST(TypedData, PCSAFTPU) {
  Typed<IZelPcSaftPure> bank("PCSAFTPU", IID_IZelPcSaftPure);
  double rmwOut;
  double sigmaOut;
  double epsilonOut;
  double epsHBOut;
  double volHBOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6), kStatusOk);
  EXPECT_EQ(bank->GetData(&rmwOut, &sigmaOut, &epsilonOut, &epsHBOut, &volHBOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(rmwOut, 1.5);
  EXPECT_EQ(sigmaOut, 2.5);
  EXPECT_EQ(epsilonOut, 3.5);
  EXPECT_EQ(epsHBOut, 4.5);
  EXPECT_EQ(volHBOut, 5.5);
  EXPECT_EQ(refCodeOut, 6);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("rmw", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("sigma", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("epsilon", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("epsHB", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("volHB", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{6}));
  EXPECT_EQ(
      bank->GetDataDefaulted(&rmwOut, &sigmaOut, &epsilonOut, &epsHBOut, &volHBOut, &refCodeOut),
      kStatusOk);
  EXPECT_EQ(rmwOut, 1.5);
  EXPECT_EQ(sigmaOut, 2.5);
  EXPECT_EQ(epsilonOut, 3.5);
  EXPECT_EQ(epsHBOut, 4.5);
  EXPECT_EQ(volHBOut, 5.5);
  EXPECT_EQ(refCodeOut, 6);
  bank.Def()->Clear();
  bank->GetDataDefaulted(&rmwOut, &sigmaOut, &epsilonOut, &epsHBOut, &volHBOut, &refCodeOut);
  EXPECT_EQ(rmwOut, 1.0);
  EXPECT_EQ(sigmaOut, 1.0);
  EXPECT_EQ(epsilonOut, 0.0);
  EXPECT_EQ(epsHBOut, 0.0);
  EXPECT_EQ(volHBOut, 0.0);
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, PENELOUX) {
  Typed<IZelPeneloux> bank("PENELOUX", IID_IZelPeneloux);
  std::int32_t const eosIn[] = {1, 2};
  std::int32_t eosOut[2];
  double const penelouxLiqIn[] = {3.5, 4.5};
  double penelouxLiqOut[2];
  double const penelouxVapIn[] = {5.5, 6.5};
  double penelouxVapOut[2];
  std::int32_t const refCodeIn[] = {7, 8};
  std::int32_t refCodeOut[2];
  EXPECT_EQ(bank->PutData(eosIn, penelouxLiqIn, penelouxVapIn, refCodeIn), kStatusOk);
  EXPECT_EQ(bank->GetData(eosOut, penelouxLiqOut, penelouxVapOut, refCodeOut), kStatusOk);
  EXPECT_TRUE(std::equal(eosIn, eosIn + 2, eosOut));
  EXPECT_TRUE(std::equal(penelouxLiqIn, penelouxLiqIn + 2, penelouxLiqOut));
  EXPECT_TRUE(std::equal(penelouxVapIn, penelouxVapIn + 2, penelouxVapOut));
  EXPECT_TRUE(std::equal(refCodeIn, refCodeIn + 2, refCodeOut));
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("EOS", 2), (std::vector<std::int32_t>{1, 2}));
  EXPECT_EQ(fields.Reals("Peneloux-Liq", 2), (std::vector<double>{3.5, 4.5}));
  EXPECT_EQ(fields.Reals("Peneloux-Vap", 2), (std::vector<double>{5.5, 6.5}));
  EXPECT_EQ(fields.Ints("REFCODE", 2), (std::vector<std::int32_t>{7, 8}));
}

TEST(TypedData, VIRIAL) {
  Typed<IZelVirial> bank("VIRIAL", IID_IZelVirial);
  double etaOut;
  double virial2Out;
  double virial3Out;
  double virial4Out;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5), kStatusOk);
  EXPECT_EQ(bank->GetData(&etaOut, &virial2Out, &virial3Out, &virial4Out, &refCodeOut), kStatusOk);
  EXPECT_EQ(etaOut, 1.5);
  EXPECT_EQ(virial2Out, 2.5);
  EXPECT_EQ(virial3Out, 3.5);
  EXPECT_EQ(virial4Out, 4.5);
  EXPECT_EQ(refCodeOut, 5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("eta", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("virial2", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("virial3", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("virial4", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{5}));
}

TEST(TypedData, GRPDESC) {
  Typed<IZelGroupDes> bank("GRPDESC", IID_IZelGroupDes);
  char nameOut[21];
  char formulaOut[21];
  char imageOut[21];
  EXPECT_EQ(bank->PutData("T1", "T2", "T3"), kStatusOk);
  EXPECT_EQ(bank->GetData(nameOut, formulaOut, imageOut), kStatusOk);
  EXPECT_STREQ(nameOut, "T1");
  EXPECT_STREQ(formulaOut, "T2");
  EXPECT_STREQ(imageOut, "T3");
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Text("name"), "T1");
  EXPECT_EQ(fields.Text("formula"), "T2");
  EXPECT_EQ(fields.Text("image"), "T3");
}

TEST(TypedData, UNFPURE) {
  Typed<IZelUnfPure> bank("UNFPURE", IID_IZelUnfPure);
  std::int32_t mainGroupOut;
  double areaOut;
  double volumeOut;
  EXPECT_EQ(bank->PutData(1, 2.5, 3.5), kStatusOk);
  EXPECT_EQ(bank->GetData(&mainGroupOut, &areaOut, &volumeOut), kStatusOk);
  EXPECT_EQ(mainGroupOut, 1);
  EXPECT_EQ(areaOut, 2.5);
  EXPECT_EQ(volumeOut, 3.5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("mainGroup", 1), (std::vector<std::int32_t>{1}));
  EXPECT_EQ(fields.Reals("area", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("volume", 1), (std::vector<double>{3.5}));
}

TEST(TypedData, UNF2PUR) {
  Typed<IZelUnf2Pure> bank("UNF2PUR", IID_IZelUnf2Pure);
  std::int32_t mainGroupOut;
  double areaOut;
  double volumeOut;
  EXPECT_EQ(bank->PutData(1, 2.5, 3.5), kStatusOk);
  EXPECT_EQ(bank->GetData(&mainGroupOut, &areaOut, &volumeOut), kStatusOk);
  EXPECT_EQ(mainGroupOut, 1);
  EXPECT_EQ(areaOut, 2.5);
  EXPECT_EQ(volumeOut, 3.5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("mainGroup", 1), (std::vector<std::int32_t>{1}));
  EXPECT_EQ(fields.Reals("area", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("volume", 1), (std::vector<double>{3.5}));
}

TEST(TypedData, UNIFAC) {
  Typed<IZelUnifac> bank("UNIFAC", IID_IZelUnifac);
  double vlijOut;
  double vljiOut;
  double llijOut;
  double lljiOut;
  double const tijIn[] = {5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13.5};
  double tijOut[9];
  double const tjiIn[] = {14.5, 15.5, 16.5, 17.5, 18.5, 19.5, 20.5, 21.5, 22.5};
  double tjiOut[9];
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, tijIn, tjiIn), kStatusOk);
  EXPECT_EQ(bank->GetData(&vlijOut, &vljiOut, &llijOut, &lljiOut, tijOut, tjiOut), kStatusOk);
  EXPECT_EQ(vlijOut, 1.5);
  EXPECT_EQ(vljiOut, 2.5);
  EXPECT_EQ(llijOut, 3.5);
  EXPECT_EQ(lljiOut, 4.5);
  EXPECT_TRUE(std::equal(tijIn, tijIn + 9, tijOut));
  EXPECT_TRUE(std::equal(tjiIn, tjiIn + 9, tjiOut));
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("vlij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("vlji", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("llij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("llji", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("Tij", 9),
            (std::vector<double>{5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13.5}));
  EXPECT_EQ(fields.Reals("Tji", 9),
            (std::vector<double>{14.5, 15.5, 16.5, 17.5, 18.5, 19.5, 20.5, 21.5, 22.5}));
}

TEST(TypedData, PPR78) {
  Typed<IZelPpr78> bank("PPR78", IID_IZelPpr78);
  double aijOut;
  double bijOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5), kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut), kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
}

TEST(TypedData, MAPORW) {
  Typed<IZelMapOrw> bank("MAPORW", IID_IZelMapOrw);
  std::int32_t libnumOut;
  EXPECT_EQ(bank->PutData(1), kStatusOk);
  EXPECT_EQ(bank->GetData(&libnumOut), kStatusOk);
  EXPECT_EQ(libnumOut, 1);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("libnum", 1), (std::vector<std::int32_t>{1}));
}

TEST(TypedData, OLI) {
  Typed<IZelOli> bank("OLI", IID_IZelOli);
  std::int32_t libnumOut;
  EXPECT_EQ(bank->PutData(1), kStatusOk);
  EXPECT_EQ(bank->GetData(&libnumOut), kStatusOk);
  EXPECT_EQ(libnumOut, 1);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("libnum", 1), (std::vector<std::int32_t>{1}));
}

TEST(TypedData, ORWMAP) {
  Typed<IZelOrwMap> bank("ORWMAP", IID_IZelOrwMap);
  char nameOut[13];
  EXPECT_EQ(bank->PutData("T1"), kStatusOk);
  EXPECT_EQ(bank->GetData(nameOut), kStatusOk);
  EXPECT_STREQ(nameOut, "T1");
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Text("name"), "T1");
}

}  // namespace
}  // namespace zel
