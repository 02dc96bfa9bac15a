// A suspicion as hosts receive it.
#pragma once

#include <string>
#include <vector>

#include "verify/judge/diagnosis.h"
#include "verify/judge/substance.h"
#include "zelaccess/DataCheck.h"

namespace zel {

// Keeps the texts of a finding.
class JudgedFinding {
 public:
  // The arguments must outlive this object.
  JudgedFinding(Suspicion const& suspicion, Substance const& substance);

  Record const& Of() const { return *suspicion_.claim.record; }
  double Strength() const { return suspicion_.strength; }
  // The texts belong to this object.
  ZelDataFinding Fill();

 private:
  void ChooseMain();
  void MakeText();
  std::string Slip() const;
  void AddEvidence(Tension const& tension);

  Suspicion const& suspicion_;
  Substance const& substance_;
  // The comparison that the sentence is about; its value is that of the datum if it can be.
  Tension main_;
  std::string text_;
  std::string valueText_;
  std::string expectedText_;
  std::string fingerprint_;
  std::vector<ZelDataEvidence> evidence_;
};

}  // namespace zel
