// Parts of documents of ThermoML, made for tests.
#pragma once

#include <string>

namespace zel::test {

// One value of a property at a temperature, with an expanded uncertainty.
inline std::string Value(char const* kelvin, char const* value, char const* uncertainty) {
  return std::string("<NumValues><VariableValue><nVarNumber>1</nVarNumber><nVarValue>") + kelvin +
         "</nVarValue><nVarDigits>5</nVarDigits></VariableValue><PropertyValue><nPropNumber>1"
         "</nPropNumber><nPropValue>" +
         value +
         "</nPropValue><nPropDigits>4</nPropDigits><CombinedUncertainty>"
         "<nCombUncertAssessNum>1</nCombUncertAssessNum><nCombExpandUncertValue>" +
         uncertainty +
         "</nCombExpandUncertValue></CombinedUncertainty></PropertyValue></NumValues>";
}

inline std::string Property(char const* name, char const* phase) {
  return std::string(
             "<Property><nPropNumber>1</nPropNumber><Property-MethodID><PropertyGroup><X>"
             "<ePropName>") +
         name +
         "</ePropName><eMethodName>Own &amp; tested</eMethodName></X></PropertyGroup>"
         "</Property-MethodID><PropPhaseID><ePropPhase>" +
         phase +
         "</ePropPhase></PropPhaseID><CombinedUncertainty><nCombUncertAssessNum>1"
         "</nCombUncertAssessNum><nCombUncertLevOfConfid>95</nCombUncertLevOfConfid>"
         "</CombinedUncertainty></Property>";
}

inline constexpr char kComponent[] = "<Component><RegNum><nOrgNum>1</nOrgNum></RegNum></Component>";
inline constexpr char kOther[] = "<Component><RegNum><nOrgNum>2</nOrgNum></RegNum></Component>";
inline constexpr char kTemperature[] =
    "<Variable><nVarNumber>1</nVarNumber><VariableID><VariableType><eTemperature>Temperature, K"
    "</eTemperature></VariableType></VariableID></Variable>";

inline std::string Pressure(char const* kilopascal) {
  return std::string(
             "<Constraint><nConstraintNumber>1</nConstraintNumber><ConstraintID>"
             "<ConstraintType><ePressure>Pressure, kPa</ePressure></ConstraintType>"
             "</ConstraintID><nConstraintValue>") +
         kilopascal + "</nConstraintValue></Constraint>";
}

inline std::string Data(std::string const& inside) {
  return "<PureOrMixtureData><nPureOrMixtureDataNumber>1</nPureOrMixtureDataNumber>" + inside +
         "</PureOrMixtureData>\n";
}

inline std::string Document(std::string const& data) {
  return "\xef\xbb\xbf<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DataReport "
         "xmlns=\"http://www.iupac.org/namespaces/ThermoML\">\n<Citation><eType>journal</eType>"
         "<sAuthor>Keeper, A.</sAuthor><sAuthor>Other, B.</sAuthor><sPubName>Own Journal</sPubName>"
         "<yrPubYr>2020</yrPubYr><sTitle>Points of water</sTitle><sVol>1</sVol><sPage>2-3</sPage>"
         "<sDOI>10.1000/182</sDOI></Citation>\n<Compound><RegNum><nOrgNum>1</nOrgNum><nCASRNum>"
         "7732185</nCASRNum></RegNum><sCommonName>water</sCommonName><sFormulaMolec>H2O"
         "</sFormulaMolec></Compound>\n<Compound><RegNum><nOrgNum>2</nOrgNum></RegNum><sCommonName>"
         "ethanol</sCommonName><sFormulaMolec>C2H6O</sFormulaMolec></Compound>\n" +
         data + "</DataReport>\n";
}

}  // namespace zel::test
