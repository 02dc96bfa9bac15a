// ThermoML, the standard of the IUPAC for measured data: points of correlations of pure components,
// with uncertainties and the publication.
#pragma once

#include <zelaccess/Verify.h>

#include <limits>
#include <string>
#include <vector>

#include "desk/pictures/plot.h"
#include "desk/words/table.h"

namespace zel::desk {

struct MeasuredPoint {
  double kelvin = 0.0;
  double value = 0.0;                                             // in the unit of the correlation
  double uncertainty = std::numeric_limits<double>::quiet_NaN();  // standard, of the value
  double pressure = std::numeric_limits<double>::quiet_NaN();     // kPa
};

// The points of one property of one compound in one publication.
struct MeasuredSet {
  std::string compound;  // its common name
  std::string cas;       // "64-17-5"; empty for none
  zel::ZelCorrelationInfo const* correlation = nullptr;
  std::string property;  // as the document names it
  std::string phase;
  std::string method;
  std::vector<MeasuredPoint> points;  // as in the document
};

// What no correlation has a place for.
struct PassedOver {
  std::string compound;
  std::string property;
  std::size_t points = 0;
  std::string why;
};

struct MeasuredData {
  std::string label;     // "Smith et al. 2010"
  std::string citation;  // authors, title, journal, year, volume, pages
  std::string doi;
  std::vector<MeasuredSet> sets;
  std::vector<PassedOver> passedOver;
};

// Units are converted; values per mass become molar by the atomic weights of the formula. Expanded
// uncertainties are divided by the coverage factor of their assessment, else by that of its level
// of confidence: 2 for 95%, which is also assumed if the document states neither. Points at more
// than 150 kPa are passed over, except those of a liquid or solid with the vapor; so are values
// that are presented as differences or ratios, and those of other phases. Throws Failure with path
// and line for a file that is not such a document, and for a number or a compound that is missing.
MeasuredData ReadThermoMl(std::string const& path);

// The sets of documents with their publications, or the points of one correlation, as a table that
// ReadPlotPoints reads; and what was passed over.
struct MeasuredTables {
  Table sets;
  Table points;
  Table passedOver;
};
// `correlation` may be null. `component` is a CAS number or a name, with "*" for any text; empty
// for all.
MeasuredTables TablesOf(std::vector<MeasuredData> const& documents,
                        zel::ZelCorrelationInfo const* correlation, std::string const& component);

// True for a file that begins as a document of XML does.
bool IsXmlFile(std::string const& path);

// Points of a correlation, from a table (desk/tables/plot_points.h) or from ThermoML, by content.
// Those of ThermoML are of the component with the CAS number or, without one, the name of the
// compound. Throws Failure, also for a document without points of the correlation.
std::vector<PlotPoints> ReadPoints(std::string const& path,
                                   zel::ZelCorrelationInfo const& correlation,
                                   DisplayUnits const& units);

}  // namespace zel::desk
