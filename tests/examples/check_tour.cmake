# Runs the tour on the project's data and on broken data, and holds its output against what it must be.
#   cmake -D TOUR=<program> -D DATA=<data folder> -D WORK_DIR=<scratch folder> -P check_tour.cmake
cmake_minimum_required(VERSION 3.20)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/library)

# Fails unless the tour ends with `status` and prints each of the lines that follow; of the line STARTS
# only the start counts.
function(expect status)
  cmake_parse_arguments(ARG "" "STARTS" "ARGUMENTS;LINES" ${ARGN})
  execute_process(COMMAND ${TOUR} ${ARG_ARGUMENTS} RESULT_VARIABLE got OUTPUT_VARIABLE out
                  ERROR_VARIABLE err)
  if(NOT got STREQUAL status)
    message(FATAL_ERROR "the tour ended with ${got}, not ${status}\n${out}${err}")
  endif()
  foreach(line IN LISTS ARG_LINES)
    string(FIND "\n${out}${err}" "\n${line}\n" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "no line\n${line}\nin\n${out}${err}")
    endif()
  endforeach()
  string(FIND "\n${out}${err}" "\n${ARG_STARTS}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "no line that starts with\n${ARG_STARTS}\nin\n${out}${err}")
  endif()
endfunction()

# The counts are those of the tables; both orders of a pair; the two kinds of bounds; sums over groups;
# the smallest bank's tree.
expect(0 ARGUMENTS ${DATA} ${WORK_DIR}/library LINES
  "  NRTL:SAMPLE"
  "  PURECOMP:NIST"
  "  NRTL      SAMPLE         2    218     20  Nrtl VLE binary data"
  "  RACKETT   ALKANES        1     10      1  Rackett data"
  "  Ethanol               Water                   -29.17    624.87  0.2937  101.3 -  101.3   91"
  "  Water                 Ethanol                 624.87    -29.17  0.2937  101.3 -  101.3   91"
  "  Water                 Ethanol                 955.45    382.30          101.3 -  101.3   98"
  "  Acetone               Methanol                203.23    -42.39          101.3 -  101.3   91"
  "  Carbon tetrachloride  Benzene               not in the library"
  "  Carbon dioxide        Methane                 0.0978                    199.8 -  271.5   92"
  "  Ethanol                C2H6O      2.3827   3.1771   198.24     0.1752   0.2502    89.7  108.6"
  "  Ethanol          = 1 CH3 + 1 CH2 + 1 OH          r  2.5755  q  2.588"
  "       H2O   300.00   362.30   377.60  -229.10     0.00  -195.40    72.87"
  "                            /10000024/  /0x3e8fc505/  (--)"
  "  Total entries   10"
  "Exported: 16 documents, 461362 bytes. Read back into a new library:"
  "Exported from there: the same 461362 bytes."
  # One library per source (three more correlations are of forms that no bank gives back, though they
  # evaluate); constants by source, by label and from the other critical constants; the
  # warning; points inside and outside a range, molar values of a weight basis; the check.
  "  CHEMSEP    229 components   4997 constants   2490 correlations  ChemSep data"
  "  2,3-Dimethylbutane            23MB      C6H14          79-29-8   331.15    86.18"
  "  alpha-Methyl styrene          AMSTYREN  C9H10          98-83-9   438.55        -"
  "Rows by ID, further IDs included: 656"
  "  NBP                   351.8  K                71  CHEMSEP:CHEMSEP"
  "  LHV                 1235000  kJ/kg-mol        -  from Heat of Combustion"
  "  API gravity        46.26829                   -  from sg6oF"
  "  ZC                0.2578364                   -  (derived)"
  "  The [Pc*Vc/(R*Zc*Tc) = 1] consistency check is showing an error greater than 10% for Acetonitrile."
  "  VaporPressure, kPa: equation 20 from PERRY:PERRY, reference 11"
  "    value    0.06699*    0.6106      79.91       1172       6462  2.193e+04  4.298e+04*"
  "Vapor pressure at the normal boiling point against 101.325 kPa, 337 components"
  "  Silicon tetrafluoride          187.15   233.022   129.97  CRC:CRC      PERRY:PERRY")

expect(2 LINES "usage: tour <data folder> <folder for the library>")
expect(1 ARGUMENTS ${WORK_DIR}/nowhere ${WORK_DIR}/library LINES
  "tour: cannot read ${WORK_DIR}/nowhere/components.txt")
# Which reason a system gives for a folder that is not there is its own affair.
expect(1 ARGUMENTS ${DATA} ${WORK_DIR}/nowhere STARTS
  "tour: ${WORK_DIR}/nowhere/sample.lb1: ")

# Defects in a document and in the table of components are named.
function(expect_refused file from to)
  file(COPY ${DATA}/ DESTINATION ${WORK_DIR}/data)
  file(READ ${WORK_DIR}/data/${file} text)
  string(FIND "${text}" "${from}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${file} has no ${from}")
  endif()
  string(REPLACE "${from}" "${to}" text "${text}")
  file(WRITE ${WORK_DIR}/data/${file} "${text}")
  expect(1 ARGUMENTS ${WORK_DIR}/data ${WORK_DIR}/library LINES ${ARGN})
  file(REMOVE_RECURSE ${WORK_DIR}/data)
endfunction()
set(first_item "Item \"10000012:10000003\"")
expect_refused(xml/sample-nrtl.xml "<bij> 190.632149 </bij>" "<bjj> 190.632149 </bjj>"
  "*** sample-nrtl.xml : error : ${first_item} - Unrecognized node <bjj> found within <item> node")
expect_refused(xml/sample-nrtl.xml "</bank>" ""
  "*** sample.xml : error : Format error in XML document \"${WORK_DIR}/data/xml/sample-nrtl.xml\"")
expect_refused(xml/vdi-purecomp.xml "<property name=\"TC\" value=\"408.05\"" "<property name=\"TX\" value=\"408.05\""
  "*** vdi-purecomp.xml : error : Component \"FORMALD\" (10000001) - Unrecognized property \"TX\" found")
expect_refused(components.txt "formula    phase" "fromula    phase"
  "tour: ${WORK_DIR}/data/components.txt: no column formula")

file(REMOVE_RECURSE ${WORK_DIR})
