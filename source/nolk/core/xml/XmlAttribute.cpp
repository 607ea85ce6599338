// XmlAttribute is wholly inline; compiling its header alone keeps it complete in itself.
#include <nolk/core/XmlAttribute.h>
