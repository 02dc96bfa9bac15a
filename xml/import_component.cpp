#include "xml/import_component.h"

namespace zel {

bool ComponentImport::WalkBank(XmlNode) { return true; }
bool ComponentImport::ImportAlone(XmlNode) { return true; }

}  // namespace zel
