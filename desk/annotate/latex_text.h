// Text of LaTeX, as BibTeX holds it, and plain text.
#pragma once

#include <string>

namespace zel::desk {

// The plain text in UTF-8: accents and special letters become characters, "--" and "---" a hyphen,
// "~" a blank, quotes of two characters one, and runs of blanks one blank. Braces, "$" and unknown
// commands are left out; the text in the braces of such a command is kept.
std::string PlainText(std::string const& latex);

// The text with everything escaped that PlainText would change; it reads back to the same text if
// that has neither runs of blanks nor blanks at its ends.
std::string LatexText(std::string const& plain);

}  // namespace zel::desk
