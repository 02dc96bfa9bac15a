# Fails unless the reference site, with the settings of this tree, refuses a header in which something is
# not documented, names each fault, and says nothing of what is documented.
#   cmake -D DOXYGEN=<doxygen> -D SOURCE_DIR=<this tree> -D WORK_DIR=<scratch> -P check_docs.cmake
cmake_minimum_required(VERSION 3.20)

file(REMOVE_RECURSE ${WORK_DIR})
file(WRITE ${WORK_DIR}/faulty.h "/// \\file
/// A header with faults.

/// A namespace.
namespace zel {
void NoComment();
/// Lacks a parameter.
void NoParameter(int* pointer);
/// Lacks the result.
int NoResult();
class NoClassComment {
 public:
  /// Is complete.
  /// \\param value  a value
  /// \\return a value
  int Complete(int value);

 protected:
  void Hidden();
};
/// Lacks the comment of a member.
struct Members {
  int no_member;
};
}
")
file(READ ${SOURCE_DIR}/docs/Doxyfile settings)
file(WRITE ${WORK_DIR}/Doxyfile
     "${settings}\nINPUT = ${WORK_DIR}/faulty.h\nOUTPUT_DIRECTORY = ${WORK_DIR}\n")
execute_process(COMMAND ${DOXYGEN} ${WORK_DIR}/Doxyfile WORKING_DIRECTORY ${SOURCE_DIR}
                RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE found)
if(status EQUAL 0)
  message(FATAL_ERROR "a header with faults is accepted:\n${found}")
endif()
foreach(fault NoComment NoParameter NoResult NoClassComment no_member)
  if(NOT found MATCHES "[: ]${fault}[ (]")
    message(FATAL_ERROR "nothing is said of ${fault}:\n${found}")
  endif()
endforeach()
if(found MATCHES "Complete|Hidden")
  message(FATAL_ERROR "what is documented, or not public, is reported:\n${found}")
endif()
