#pragma once

#include "components/component.h"

namespace quorvane {

/// ADOX.Catalog, Table, Column and Index: a database's tables as objects.
extern const Component kAdoxCatalog;
extern const Component kAdoxTable;
extern const Component kAdoxColumn;
extern const Component kAdoxIndex;

/// JRO.JetEngine: CompactDatabase.
extern const Component kJetEngine;

}  // namespace quorvane
