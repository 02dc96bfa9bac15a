// The typed interfaces of pair banks: argument orders, and the model coefficients by default.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/banks/bank_fields.h"

namespace zel {
namespace {

using test::Fields;
using test::Typed;

TEST(TypedData, WILSON) {
  Typed<IZelWilson> bank("WILSON", IID_IZelWilson);
  std::int32_t formOut;
  std::int32_t eqnFormOut;
  std::int32_t volRatioOut;
  double aijOut;
  double ajiOut;
  double bijOut;
  double bjiOut;
  double cijOut;
  double cjiOut;
  double dijOut;
  double djiOut;
  double eijOut;
  double ejiOut;
  double fijOut;
  double fjiOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1, 2, 3, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13.5, 14.5, 15.5,
                          16.5, 17.5, 18.5, 19.5, 20),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&formOut, &eqnFormOut, &volRatioOut, &aijOut, &ajiOut, &bijOut, &bjiOut,
                          &cijOut, &cjiOut, &dijOut, &djiOut, &eijOut, &ejiOut, &fijOut, &fjiOut,
                          &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(formOut, 1);
  EXPECT_EQ(eqnFormOut, 2);
  EXPECT_EQ(volRatioOut, 3);
  EXPECT_EQ(aijOut, 4.5);
  EXPECT_EQ(ajiOut, 5.5);
  EXPECT_EQ(bijOut, 6.5);
  EXPECT_EQ(bjiOut, 7.5);
  EXPECT_EQ(cijOut, 8.5);
  EXPECT_EQ(cjiOut, 9.5);
  EXPECT_EQ(dijOut, 10.5);
  EXPECT_EQ(djiOut, 11.5);
  EXPECT_EQ(eijOut, 12.5);
  EXPECT_EQ(ejiOut, 13.5);
  EXPECT_EQ(fijOut, 14.5);
  EXPECT_EQ(fjiOut, 15.5);
  EXPECT_EQ(tMinOut, 16.5);
  EXPECT_EQ(tMaxOut, 17.5);
  EXPECT_EQ(pMinOut, 18.5);
  EXPECT_EQ(pMaxOut, 19.5);
  EXPECT_EQ(refCodeOut, 20);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("form", 1), (std::vector<std::int32_t>{1}));
  EXPECT_EQ(fields.Ints("eqnForm", 1), (std::vector<std::int32_t>{2}));
  EXPECT_EQ(fields.Ints("volRatio", 1), (std::vector<std::int32_t>{3}));
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("bji", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("cji", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("dij", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("dji", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("eij", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Reals("eji", 1), (std::vector<double>{13.5}));
  EXPECT_EQ(fields.Reals("fij", 1), (std::vector<double>{14.5}));
  EXPECT_EQ(fields.Reals("fji", 1), (std::vector<double>{15.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{16.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{17.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{18.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{19.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{20}));
  EXPECT_EQ(
      bank->GetDataDefaulted(&formOut, &eqnFormOut, &volRatioOut, &aijOut, &ajiOut, &bijOut,
                             &bjiOut, &cijOut, &cjiOut, &dijOut, &djiOut, &eijOut, &ejiOut, &fijOut,
                             &fjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
      kStatusOk);
  EXPECT_EQ(formOut, 1);
  EXPECT_EQ(eqnFormOut, 2);
  EXPECT_EQ(volRatioOut, 3);
  EXPECT_EQ(aijOut, 4.5);
  EXPECT_EQ(ajiOut, 5.5);
  EXPECT_EQ(bijOut, 6.5);
  EXPECT_EQ(bjiOut, 7.5);
  EXPECT_EQ(cijOut, 8.5);
  EXPECT_EQ(cjiOut, 9.5);
  EXPECT_EQ(dijOut, 10.5);
  EXPECT_EQ(djiOut, 11.5);
  EXPECT_EQ(eijOut, 12.5);
  EXPECT_EQ(ejiOut, 13.5);
  EXPECT_EQ(fijOut, 14.5);
  EXPECT_EQ(fjiOut, 15.5);
  EXPECT_EQ(tMinOut, 16.5);
  EXPECT_EQ(tMaxOut, 17.5);
  EXPECT_EQ(pMinOut, 18.5);
  EXPECT_EQ(pMaxOut, 19.5);
  EXPECT_EQ(refCodeOut, 20);
  bank.Def()->Clear();
  bank->GetDataDefaulted(&formOut, &eqnFormOut, &volRatioOut, &aijOut, &ajiOut, &bijOut, &bjiOut,
                         &cijOut, &cjiOut, &dijOut, &djiOut, &eijOut, &ejiOut, &fijOut, &fjiOut,
                         &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_EQ(aijOut, 0.0);
  EXPECT_EQ(ajiOut, 0.0);
  EXPECT_EQ(bijOut, 0.0);
  EXPECT_EQ(bjiOut, 0.0);
  EXPECT_EQ(cijOut, 0.0);
  EXPECT_EQ(cjiOut, 0.0);
  EXPECT_EQ(dijOut, 0.0);
  EXPECT_EQ(djiOut, 0.0);
  EXPECT_EQ(eijOut, 0.0);
  EXPECT_EQ(ejiOut, 0.0);
  EXPECT_EQ(fijOut, 0.0);
  EXPECT_EQ(fjiOut, 0.0);
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, NRTL) {
  Typed<IZelNrtl> bank("NRTL", IID_IZelNrtl);
  double aijOut;
  double bijOut;
  double cijOut;
  double dijOut;
  double eijOut;
  double fijOut;
  double ajiOut;
  double bjiOut;
  double cjiOut;
  double djiOut;
  double ejiOut;
  double fjiOut;
  double alphaijOut;
  double betaijOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13.5, 14.5,
                          15.5, 16.5, 17.5, 18.5, 19),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &cijOut, &dijOut, &eijOut, &fijOut, &ajiOut, &bjiOut,
                          &cjiOut, &djiOut, &ejiOut, &fjiOut, &alphaijOut, &betaijOut, &tMinOut,
                          &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(dijOut, 4.5);
  EXPECT_EQ(eijOut, 5.5);
  EXPECT_EQ(fijOut, 6.5);
  EXPECT_EQ(ajiOut, 7.5);
  EXPECT_EQ(bjiOut, 8.5);
  EXPECT_EQ(cjiOut, 9.5);
  EXPECT_EQ(djiOut, 10.5);
  EXPECT_EQ(ejiOut, 11.5);
  EXPECT_EQ(fjiOut, 12.5);
  EXPECT_EQ(alphaijOut, 13.5);
  EXPECT_EQ(betaijOut, 14.5);
  EXPECT_EQ(tMinOut, 15.5);
  EXPECT_EQ(tMaxOut, 16.5);
  EXPECT_EQ(pMinOut, 17.5);
  EXPECT_EQ(pMaxOut, 18.5);
  EXPECT_EQ(refCodeOut, 19);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("dij", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("eij", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("fij", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("bji", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("cji", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("dji", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("eji", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("fji", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Reals("alphaij", 1), (std::vector<double>{13.5}));
  EXPECT_EQ(fields.Reals("betaij", 1), (std::vector<double>{14.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{15.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{16.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{17.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{18.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{19}));
  EXPECT_EQ(bank->GetDataDefaulted(&aijOut, &bijOut, &cijOut, &dijOut, &eijOut, &fijOut, &ajiOut,
                                   &bjiOut, &cjiOut, &djiOut, &ejiOut, &fjiOut, &alphaijOut,
                                   &betaijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(dijOut, 4.5);
  EXPECT_EQ(eijOut, 5.5);
  EXPECT_EQ(fijOut, 6.5);
  EXPECT_EQ(ajiOut, 7.5);
  EXPECT_EQ(bjiOut, 8.5);
  EXPECT_EQ(cjiOut, 9.5);
  EXPECT_EQ(djiOut, 10.5);
  EXPECT_EQ(ejiOut, 11.5);
  EXPECT_EQ(fjiOut, 12.5);
  EXPECT_EQ(alphaijOut, 13.5);
  EXPECT_EQ(betaijOut, 14.5);
  EXPECT_EQ(tMinOut, 15.5);
  EXPECT_EQ(tMaxOut, 16.5);
  EXPECT_EQ(pMinOut, 17.5);
  EXPECT_EQ(pMaxOut, 18.5);
  EXPECT_EQ(refCodeOut, 19);
  bank.Def()->Clear();
  bank->GetDataDefaulted(&aijOut, &bijOut, &cijOut, &dijOut, &eijOut, &fijOut, &ajiOut, &bjiOut,
                         &cjiOut, &djiOut, &ejiOut, &fjiOut, &alphaijOut, &betaijOut, &tMinOut,
                         &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_EQ(aijOut, 0.0);
  EXPECT_EQ(bijOut, 0.0);
  EXPECT_EQ(cijOut, 0.0);
  EXPECT_EQ(dijOut, 0.0);
  EXPECT_EQ(eijOut, 0.0);
  EXPECT_EQ(fijOut, 0.0);
  EXPECT_EQ(ajiOut, 0.0);
  EXPECT_EQ(bjiOut, 0.0);
  EXPECT_EQ(cjiOut, 0.0);
  EXPECT_EQ(djiOut, 0.0);
  EXPECT_EQ(ejiOut, 0.0);
  EXPECT_EQ(fjiOut, 0.0);
  EXPECT_EQ(alphaijOut, 0.0);
  EXPECT_EQ(betaijOut, 0.0);
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, NRTLLL) {
  Typed<IZelNrtlLL> bank("NRTLLL", IID_IZelNrtlLL);
  double aijOut;
  double bijOut;
  double cijOut;
  double dijOut;
  double eijOut;
  double fijOut;
  double ajiOut;
  double bjiOut;
  double cjiOut;
  double djiOut;
  double ejiOut;
  double fjiOut;
  double alphaijOut;
  double betaijOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13.5, 14.5,
                          15.5, 16.5, 17.5, 18.5, 19),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &cijOut, &dijOut, &eijOut, &fijOut, &ajiOut, &bjiOut,
                          &cjiOut, &djiOut, &ejiOut, &fjiOut, &alphaijOut, &betaijOut, &tMinOut,
                          &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(dijOut, 4.5);
  EXPECT_EQ(eijOut, 5.5);
  EXPECT_EQ(fijOut, 6.5);
  EXPECT_EQ(ajiOut, 7.5);
  EXPECT_EQ(bjiOut, 8.5);
  EXPECT_EQ(cjiOut, 9.5);
  EXPECT_EQ(djiOut, 10.5);
  EXPECT_EQ(ejiOut, 11.5);
  EXPECT_EQ(fjiOut, 12.5);
  EXPECT_EQ(alphaijOut, 13.5);
  EXPECT_EQ(betaijOut, 14.5);
  EXPECT_EQ(tMinOut, 15.5);
  EXPECT_EQ(tMaxOut, 16.5);
  EXPECT_EQ(pMinOut, 17.5);
  EXPECT_EQ(pMaxOut, 18.5);
  EXPECT_EQ(refCodeOut, 19);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("dij", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("eij", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("fij", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("bji", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("cji", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("dji", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("eji", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("fji", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Reals("alphaij", 1), (std::vector<double>{13.5}));
  EXPECT_EQ(fields.Reals("betaij", 1), (std::vector<double>{14.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{15.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{16.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{17.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{18.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{19}));
  EXPECT_EQ(bank->GetDataDefaulted(&aijOut, &bijOut, &cijOut, &dijOut, &eijOut, &fijOut, &ajiOut,
                                   &bjiOut, &cjiOut, &djiOut, &ejiOut, &fjiOut, &alphaijOut,
                                   &betaijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(dijOut, 4.5);
  EXPECT_EQ(eijOut, 5.5);
  EXPECT_EQ(fijOut, 6.5);
  EXPECT_EQ(ajiOut, 7.5);
  EXPECT_EQ(bjiOut, 8.5);
  EXPECT_EQ(cjiOut, 9.5);
  EXPECT_EQ(djiOut, 10.5);
  EXPECT_EQ(ejiOut, 11.5);
  EXPECT_EQ(fjiOut, 12.5);
  EXPECT_EQ(alphaijOut, 13.5);
  EXPECT_EQ(betaijOut, 14.5);
  EXPECT_EQ(tMinOut, 15.5);
  EXPECT_EQ(tMaxOut, 16.5);
  EXPECT_EQ(pMinOut, 17.5);
  EXPECT_EQ(pMaxOut, 18.5);
  EXPECT_EQ(refCodeOut, 19);
  bank.Def()->Clear();
  bank->GetDataDefaulted(&aijOut, &bijOut, &cijOut, &dijOut, &eijOut, &fijOut, &ajiOut, &bjiOut,
                         &cjiOut, &djiOut, &ejiOut, &fjiOut, &alphaijOut, &betaijOut, &tMinOut,
                         &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_EQ(aijOut, 0.0);
  EXPECT_EQ(bijOut, 0.0);
  EXPECT_EQ(cijOut, 0.0);
  EXPECT_EQ(dijOut, 0.0);
  EXPECT_EQ(eijOut, 0.0);
  EXPECT_EQ(fijOut, 0.0);
  EXPECT_EQ(ajiOut, 0.0);
  EXPECT_EQ(bjiOut, 0.0);
  EXPECT_EQ(cjiOut, 0.0);
  EXPECT_EQ(djiOut, 0.0);
  EXPECT_EQ(ejiOut, 0.0);
  EXPECT_EQ(fjiOut, 0.0);
  EXPECT_EQ(alphaijOut, 0.0);
  EXPECT_EQ(betaijOut, 0.0);
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, UNIQUAC) {
  Typed<IZelUniquac> bank("UNIQUAC", IID_IZelUniquac);
  double aijOut;
  double bijOut;
  double cijOut;
  double dijOut;
  double ajiOut;
  double bjiOut;
  double cjiOut;
  double djiOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &cijOut, &dijOut, &ajiOut, &bjiOut, &cjiOut, &djiOut,
                          &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(dijOut, 4.5);
  EXPECT_EQ(ajiOut, 5.5);
  EXPECT_EQ(bjiOut, 6.5);
  EXPECT_EQ(cjiOut, 7.5);
  EXPECT_EQ(djiOut, 8.5);
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("dij", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("bji", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("cji", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("dji", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{13}));
}

TEST(TypedData, UNIQLL) {
  Typed<IZelUniquacLL> bank("UNIQLL", IID_IZelUniquacLL);
  double aijOut;
  double bijOut;
  double cijOut;
  double dijOut;
  double ajiOut;
  double bjiOut;
  double cjiOut;
  double djiOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &cijOut, &dijOut, &ajiOut, &bjiOut, &cjiOut, &djiOut,
                          &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(dijOut, 4.5);
  EXPECT_EQ(ajiOut, 5.5);
  EXPECT_EQ(bjiOut, 6.5);
  EXPECT_EQ(cjiOut, 7.5);
  EXPECT_EQ(djiOut, 8.5);
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("dij", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("bji", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("cji", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("dji", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{13}));
}

TEST(TypedData, MARGULES) {
  Typed<IZelMargules> bank("MARGULES", IID_IZelMargules);
  double aijOut;
  double ajiOut;
  double dijOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8), kStatusOk);
  EXPECT_EQ(
      bank->GetData(&aijOut, &ajiOut, &dijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
      kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(ajiOut, 2.5);
  EXPECT_EQ(dijOut, 3.5);
  EXPECT_EQ(tMinOut, 4.5);
  EXPECT_EQ(tMaxOut, 5.5);
  EXPECT_EQ(pMinOut, 6.5);
  EXPECT_EQ(pMaxOut, 7.5);
  EXPECT_EQ(refCodeOut, 8);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("dij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{8}));
}

TEST(TypedData, VANLAAR) {
  Typed<IZelVanLaar> bank("VANLAAR", IID_IZelVanLaar);
  double aijOut;
  double ajiOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7), kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &ajiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(ajiOut, 2.5);
  EXPECT_EQ(tMinOut, 3.5);
  EXPECT_EQ(tMaxOut, 4.5);
  EXPECT_EQ(pMinOut, 5.5);
  EXPECT_EQ(pMaxOut, 6.5);
  EXPECT_EQ(refCodeOut, 7);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{7}));
}

TEST(TypedData, HMIX) {
  Typed<IZelHMix> bank("HMIX", IID_IZelHMix);
  double aijOut;
  double bijOut;
  double cijOut;
  double dijOut;
  double eijOut;
  double fijOut;
  double gijOut;
  double hijOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &cijOut, &dijOut, &eijOut, &fijOut, &gijOut, &hijOut,
                          &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(dijOut, 4.5);
  EXPECT_EQ(eijOut, 5.5);
  EXPECT_EQ(fijOut, 6.5);
  EXPECT_EQ(gijOut, 7.5);
  EXPECT_EQ(hijOut, 8.5);
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("dij", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("eij", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("fij", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("gij", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("hij", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{13}));
}

TEST(TypedData, BWRS) {
  Typed<IZelBwrs> bank("BWRS", IID_IZelBwrs);
  double aijOut;
  double bijOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7), kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(tMinOut, 3.5);
  EXPECT_EQ(tMaxOut, 4.5);
  EXPECT_EQ(pMinOut, 5.5);
  EXPECT_EQ(pMaxOut, 6.5);
  EXPECT_EQ(refCodeOut, 7);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{7}));
  EXPECT_EQ(
      bank->GetDataDefaulted(&aijOut, &bijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
      kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(tMinOut, 3.5);
  EXPECT_EQ(tMaxOut, 4.5);
  EXPECT_EQ(pMinOut, 5.5);
  EXPECT_EQ(pMaxOut, 6.5);
  EXPECT_EQ(refCodeOut, 7);
  bank.Def()->Clear();
  bank->GetDataDefaulted(&aijOut, &bijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_EQ(aijOut, 0.0);
  EXPECT_EQ(bijOut, 0.0);
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, HENRY) {
  Typed<IZelHenry> bank("HENRY", IID_IZelHenry);
  double const cIn[] = {1.5, 2.5, 3.5, 4.5, 5.5};
  double cOut[5];
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(cIn, 6.5, 7.5, 8.5, 9.5, 10), kStatusOk);
  EXPECT_EQ(bank->GetData(cOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut), kStatusOk);
  EXPECT_TRUE(std::equal(cIn, cIn + 5, cOut));
  EXPECT_EQ(tMinOut, 6.5);
  EXPECT_EQ(tMaxOut, 7.5);
  EXPECT_EQ(pMinOut, 8.5);
  EXPECT_EQ(pMaxOut, 9.5);
  EXPECT_EQ(refCodeOut, 10);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("c", 5), (std::vector<double>{1.5, 2.5, 3.5, 4.5, 5.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{10}));
  EXPECT_EQ(bank->GetDataDefaulted(cOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(cIn, cIn + 5, cOut));
  EXPECT_EQ(tMinOut, 6.5);
  EXPECT_EQ(tMaxOut, 7.5);
  EXPECT_EQ(pMinOut, 8.5);
  EXPECT_EQ(pMaxOut, 9.5);
  EXPECT_EQ(refCodeOut, 10);
  bank.Def()->Clear();
  bank->GetDataDefaulted(cOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_TRUE(std::all_of(cOut, cOut + 5, [](double x) { return x == 0.0; }));
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, PRH) {
  Typed<IZelPrH> bank("PRH", IID_IZelPrH);
  double aijOut;
  double bijOut;
  double cijOut;
  double ajiOut;
  double bjiOut;
  double cjiOut;
  double alphaCijOut;
  double alphaTijOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &cijOut, &ajiOut, &bjiOut, &cjiOut, &alphaCijOut,
                          &alphaTijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(ajiOut, 4.5);
  EXPECT_EQ(bjiOut, 5.5);
  EXPECT_EQ(cjiOut, 6.5);
  EXPECT_EQ(alphaCijOut, 7.5);
  EXPECT_EQ(alphaTijOut, 8.5);
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("bji", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("cji", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("alphaCij", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("alphaTij", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{13}));
}

TEST(TypedData, SRKH) {
  Typed<IZelSrkH> bank("SRKH", IID_IZelSrkH);
  double aijOut;
  double bijOut;
  double cijOut;
  double ajiOut;
  double bjiOut;
  double cjiOut;
  double alphaCijOut;
  double alphaTijOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13),
            kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &cijOut, &ajiOut, &bjiOut, &cjiOut, &alphaCijOut,
                          &alphaTijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(cijOut, 3.5);
  EXPECT_EQ(ajiOut, 4.5);
  EXPECT_EQ(bjiOut, 5.5);
  EXPECT_EQ(cjiOut, 6.5);
  EXPECT_EQ(alphaCijOut, 7.5);
  EXPECT_EQ(alphaTijOut, 8.5);
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("cij", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Reals("aji", 1), (std::vector<double>{4.5}));
  EXPECT_EQ(fields.Reals("bji", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("cji", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("alphaCij", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("alphaTij", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{13}));
}

TEST(TypedData, PRM) {
  Typed<IZelPrM> bank("PRM", IID_IZelPrM);
  double const kijIn[] = {1.5, 2.5, 3.5, 4.5};
  double kijOut[4];
  double const kjiIn[] = {5.5, 6.5, 7.5, 8.5};
  double kjiOut[4];
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, kjiIn, 9.5, 10.5, 11.5, 12.5, 13), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 4, kjiOut));
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 4), (std::vector<double>{1.5, 2.5, 3.5, 4.5}));
  EXPECT_EQ(fields.Reals("kji", 4), (std::vector<double>{5.5, 6.5, 7.5, 8.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{13}));
  EXPECT_EQ(
      bank->GetDataDefaulted(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
      kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 4, kjiOut));
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  bank.Def()->Clear();
  bank->GetDataDefaulted(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_TRUE(std::all_of(kijOut, kijOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_TRUE(std::all_of(kjiOut, kjiOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, SRKS) {
  Typed<IZelSrkS> bank("SRKS", IID_IZelSrkS);
  double const kijIn[] = {1.5, 2.5, 3.5, 4.5};
  double kijOut[4];
  double const kjiIn[] = {5.5, 6.5, 7.5, 8.5};
  double kjiOut[4];
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, kjiIn, 9.5, 10.5, 11.5, 12.5, 13), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 4, kjiOut));
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 4), (std::vector<double>{1.5, 2.5, 3.5, 4.5}));
  EXPECT_EQ(fields.Reals("kji", 4), (std::vector<double>{5.5, 6.5, 7.5, 8.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{13}));
  EXPECT_EQ(
      bank->GetDataDefaulted(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
      kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 4, kjiOut));
  EXPECT_EQ(tMinOut, 9.5);
  EXPECT_EQ(tMaxOut, 10.5);
  EXPECT_EQ(pMinOut, 11.5);
  EXPECT_EQ(pMaxOut, 12.5);
  EXPECT_EQ(refCodeOut, 13);
  bank.Def()->Clear();
  bank->GetDataDefaulted(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_TRUE(std::all_of(kijOut, kijOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_TRUE(std::all_of(kjiOut, kjiOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, SRKM) {
  Typed<IZelSrkM> bank("SRKM", IID_IZelSrkM);
  double const kijIn[] = {1.5, 2.5, 3.5, 4.5};
  double kijOut[4];
  double const kjiIn[] = {5.5, 6.5, 7.5, 8.5};
  double kjiOut[4];
  double kijdOut;
  double kjidOut;
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, kjiIn, 9.5, 10.5, 11.5, 12.5, 13.5, 14.5, 15), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, kjiOut, &kijdOut, &kjidOut, &tMinOut, &tMaxOut, &pMinOut,
                          &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 4, kjiOut));
  EXPECT_EQ(kijdOut, 9.5);
  EXPECT_EQ(kjidOut, 10.5);
  EXPECT_EQ(tMinOut, 11.5);
  EXPECT_EQ(tMaxOut, 12.5);
  EXPECT_EQ(pMinOut, 13.5);
  EXPECT_EQ(pMaxOut, 14.5);
  EXPECT_EQ(refCodeOut, 15);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 4), (std::vector<double>{1.5, 2.5, 3.5, 4.5}));
  EXPECT_EQ(fields.Reals("kji", 4), (std::vector<double>{5.5, 6.5, 7.5, 8.5}));
  EXPECT_EQ(fields.Reals("kijd", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("kjid", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{11.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{12.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{13.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{14.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{15}));
  EXPECT_EQ(bank->GetDataDefaulted(kijOut, kjiOut, &kijdOut, &kjidOut, &tMinOut, &tMaxOut, &pMinOut,
                                   &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 4, kjiOut));
  EXPECT_EQ(kijdOut, 9.5);
  EXPECT_EQ(kjidOut, 10.5);
  EXPECT_EQ(tMinOut, 11.5);
  EXPECT_EQ(tMaxOut, 12.5);
  EXPECT_EQ(pMinOut, 13.5);
  EXPECT_EQ(pMaxOut, 14.5);
  EXPECT_EQ(refCodeOut, 15);
  bank.Def()->Clear();
  bank->GetDataDefaulted(kijOut, kjiOut, &kijdOut, &kjidOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut,
                         &refCodeOut);
  EXPECT_TRUE(std::all_of(kijOut, kijOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_TRUE(std::all_of(kjiOut, kjiOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_EQ(kijdOut, 0.0);
  EXPECT_EQ(kjidOut, 0.0);
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, PRP) {
  Typed<IZelPrP> bank("PRP", IID_IZelPrP);
  double const kijIn[] = {1.5, 2.5, 3.5};
  double kijOut[3];
  double const kjiIn[] = {4.5, 5.5, 6.5};
  double kjiOut[3];
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, kjiIn, 7.5, 8.5, 9.5, 10.5, 11), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 3, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 3, kjiOut));
  EXPECT_EQ(tMinOut, 7.5);
  EXPECT_EQ(tMaxOut, 8.5);
  EXPECT_EQ(pMinOut, 9.5);
  EXPECT_EQ(pMaxOut, 10.5);
  EXPECT_EQ(refCodeOut, 11);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 3), (std::vector<double>{1.5, 2.5, 3.5}));
  EXPECT_EQ(fields.Reals("kji", 3), (std::vector<double>{4.5, 5.5, 6.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{11}));
}

TEST(TypedData, SRKP) {
  Typed<IZelSrkP> bank("SRKP", IID_IZelSrkP);
  double const kijIn[] = {1.5, 2.5, 3.5};
  double kijOut[3];
  double const kjiIn[] = {4.5, 5.5, 6.5};
  double kjiOut[3];
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, kjiIn, 7.5, 8.5, 9.5, 10.5, 11), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, kjiOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 3, kijOut));
  EXPECT_TRUE(std::equal(kjiIn, kjiIn + 3, kjiOut));
  EXPECT_EQ(tMinOut, 7.5);
  EXPECT_EQ(tMaxOut, 8.5);
  EXPECT_EQ(pMinOut, 9.5);
  EXPECT_EQ(pMaxOut, 10.5);
  EXPECT_EQ(refCodeOut, 11);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 3), (std::vector<double>{1.5, 2.5, 3.5}));
  EXPECT_EQ(fields.Reals("kji", 3), (std::vector<double>{4.5, 5.5, 6.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{9.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{10.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{11}));
}

TEST(TypedData, PRO) {
  Typed<IZelPrO> bank("PRO", IID_IZelPrO);
  double const kijIn[] = {1.5, 2.5, 3.5, 4.5};
  double kijOut[4];
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, 5.5, 6.5, 7.5, 8.5, 9), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut), kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_EQ(tMinOut, 5.5);
  EXPECT_EQ(tMaxOut, 6.5);
  EXPECT_EQ(pMinOut, 7.5);
  EXPECT_EQ(pMaxOut, 8.5);
  EXPECT_EQ(refCodeOut, 9);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 4), (std::vector<double>{1.5, 2.5, 3.5, 4.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{9}));
  EXPECT_EQ(bank->GetDataDefaulted(kijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_EQ(tMinOut, 5.5);
  EXPECT_EQ(tMaxOut, 6.5);
  EXPECT_EQ(pMinOut, 7.5);
  EXPECT_EQ(pMaxOut, 8.5);
  EXPECT_EQ(refCodeOut, 9);
  bank.Def()->Clear();
  bank->GetDataDefaulted(kijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_TRUE(std::all_of(kijOut, kijOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, SRKO) {
  Typed<IZelSrkO> bank("SRKO", IID_IZelSrkO);
  double const kijIn[] = {1.5, 2.5, 3.5, 4.5};
  double kijOut[4];
  double tMinOut;
  double tMaxOut;
  double pMinOut;
  double pMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, 5.5, 6.5, 7.5, 8.5, 9), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut), kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_EQ(tMinOut, 5.5);
  EXPECT_EQ(tMaxOut, 6.5);
  EXPECT_EQ(pMinOut, 7.5);
  EXPECT_EQ(pMaxOut, 8.5);
  EXPECT_EQ(refCodeOut, 9);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 4), (std::vector<double>{1.5, 2.5, 3.5, 4.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Reals("pMin", 1), (std::vector<double>{7.5}));
  EXPECT_EQ(fields.Reals("pMax", 1), (std::vector<double>{8.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{9}));
  EXPECT_EQ(bank->GetDataDefaulted(kijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut),
            kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_EQ(tMinOut, 5.5);
  EXPECT_EQ(tMaxOut, 6.5);
  EXPECT_EQ(pMinOut, 7.5);
  EXPECT_EQ(pMaxOut, 8.5);
  EXPECT_EQ(refCodeOut, 9);
  bank.Def()->Clear();
  bank->GetDataDefaulted(kijOut, &tMinOut, &tMaxOut, &pMinOut, &pMaxOut, &refCodeOut);
  EXPECT_TRUE(std::all_of(kijOut, kijOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(pMinOut, gen_GetUndefDouble());
  EXPECT_EQ(pMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, PCSAFT) {
  Typed<IZelPcSaft> bank("PCSAFT", IID_IZelPcSaft);
  double const kijIn[] = {1.5, 2.5, 3.5, 4.5};
  double kijOut[4];
  double tMinOut;
  double tMaxOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(kijIn, 5.5, 6.5, 7), kStatusOk);
  EXPECT_EQ(bank->GetData(kijOut, &tMinOut, &tMaxOut, &refCodeOut), kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_EQ(tMinOut, 5.5);
  EXPECT_EQ(tMaxOut, 6.5);
  EXPECT_EQ(refCodeOut, 7);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 4), (std::vector<double>{1.5, 2.5, 3.5, 4.5}));
  EXPECT_EQ(fields.Reals("tMin", 1), (std::vector<double>{5.5}));
  EXPECT_EQ(fields.Reals("tMax", 1), (std::vector<double>{6.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{7}));
  EXPECT_EQ(bank->GetDataDefaulted(kijOut, &tMinOut, &tMaxOut, &refCodeOut), kStatusOk);
  EXPECT_TRUE(std::equal(kijIn, kijIn + 4, kijOut));
  EXPECT_EQ(tMinOut, 5.5);
  EXPECT_EQ(tMaxOut, 6.5);
  EXPECT_EQ(refCodeOut, 7);
  bank.Def()->Clear();
  bank->GetDataDefaulted(kijOut, &tMinOut, &tMaxOut, &refCodeOut);
  EXPECT_TRUE(std::all_of(kijOut, kijOut + 4, [](double x) { return x == 0.0; }));
  EXPECT_EQ(tMinOut, gen_GetUndefDouble());
  EXPECT_EQ(tMaxOut, gen_GetUndefDouble());
  EXPECT_EQ(refCodeOut, gen_GetUndefInt());
}

TEST(TypedData, AZEOTROP) {
  Typed<IZelAzeo> bank("AZEOTROP", IID_IZelAzeo);
  double tempOut;
  double presOut;
  double x1Out;
  std::int32_t basisOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3.5, 4), kStatusOk);
  EXPECT_EQ(bank->GetData(&tempOut, &presOut, &x1Out, &basisOut), kStatusOk);
  EXPECT_EQ(tempOut, 1.5);
  EXPECT_EQ(presOut, 2.5);
  EXPECT_EQ(x1Out, 3.5);
  EXPECT_EQ(basisOut, 4);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("temp", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("pres", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Reals("x1", 1), (std::vector<double>{3.5}));
  EXPECT_EQ(fields.Ints("basis", 1), (std::vector<std::int32_t>{4}));
}

TEST(TypedData, LKP) {
  Typed<IZelLkp> bank("LKP", IID_IZelLkp);
  double kijOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2), kStatusOk);
  EXPECT_EQ(bank->GetData(&kijOut, &refCodeOut), kStatusOk);
  EXPECT_EQ(kijOut, 1.5);
  EXPECT_EQ(refCodeOut, 2);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{2}));
}

TEST(TypedData, IDIMER) {
  Typed<IZelIDimer> bank("IDIMER", IID_IZelIDimer);
  double aijOut;
  double bijOut;
  std::int32_t refCodeOut;
  EXPECT_EQ(bank->PutData(1.5, 2.5, 3), kStatusOk);
  EXPECT_EQ(bank->GetData(&aijOut, &bijOut, &refCodeOut), kStatusOk);
  EXPECT_EQ(aijOut, 1.5);
  EXPECT_EQ(bijOut, 2.5);
  EXPECT_EQ(refCodeOut, 3);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("Aij", 1), (std::vector<double>{1.5}));
  EXPECT_EQ(fields.Reals("Bij", 1), (std::vector<double>{2.5}));
  EXPECT_EQ(fields.Ints("refCode", 1), (std::vector<std::int32_t>{3}));
}

TEST(TypedData, HOCV) {
  Typed<IZelHocV> bank("HOCV", IID_IZelHocV);
  double etaOut;
  EXPECT_EQ(bank->PutData(1.5), kStatusOk);
  EXPECT_EQ(bank->GetData(&etaOut), kStatusOk);
  EXPECT_EQ(etaOut, 1.5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("eta", 1), (std::vector<double>{1.5}));
}

}  // namespace
}  // namespace zel
