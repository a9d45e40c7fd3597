#include "components/ado/catalog.h"

#include "components/ado/catalog_objects.h"
#include "components/ado/database_file.h"

namespace quorvane {

namespace ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

std::span<const vbs::Member<Catalog>> Catalog::members() {
  using Self = Catalog;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"create", 1, 1, &Self::callCreate},
      {"activeconnection", 0, 0, &Self::getActiveConnection, &Self::putActiveConnection},
      {"tables", 0, 1, &Self::getTables},
  };
  return kMembers;
}

/// Makes the file that a connection text names, and is connected with it.
Value Catalog::callCreate(Args args) {
  const std::string text = utf8Of(args[0]);
  try {
    createDatabase(services_, text);
  } catch (const DatabaseError& error) {
    throw scriptError(error);
  }
  auto connection = vbs::make<Connection>(services_);
  connection->open(text);
  connection_ = std::move(connection);
  tables_ = {};
  return Value::object(connection_.get());
}

void Catalog::putActiveConnection(Args args, CallKind) {
  connection_ = connectionOf(args[0], services_);
  tables_ = {};
}

Value Catalog::getTables(Args args) {
  if (!connection_) throwAdo(AdoError::InvalidConnection, "ADOX.Catalog");
  if (!tables_) tables_ = vbs::make<CatalogTables>(connection_);
  const Value tables = Value::object(tables_.get());
  return args.empty() ? tables : vbs::invokeResult(tables, CallKind::Get, args);
}

namespace {

/// JRO.JetEngine.
class JetEngine final : public vbs::NativeObject<JetEngine> {
 public:
  explicit JetEngine(const Services& services) : services_(services) {}

  std::string_view typeName() const override { return "JetEngine"; }
  static std::span<const vbs::Member<JetEngine>> members() {
    static constexpr vbs::Member<JetEngine> kMembers[] = {
        {"compactdatabase", 2, 2, &JetEngine::callCompactDatabase},
        {"refreshcache", 1, 1, &JetEngine::callRefreshCache},
    };
    return kMembers;
  }

 private:
  Value callCompactDatabase(Args args) {
    try {
      compactDatabase(services_, utf8Of(args[0]), utf8Of(args[1]));
    } catch (const DatabaseError& error) {
      throw scriptError(error);
    }
    return {};
  }
  Value callRefreshCache(Args) { return {}; }

  const Services& services_;
};

}  // namespace

}  // namespace ado

using vbs::Value;

const Component kAdoxCatalog{"adox.catalog", [](const Services& services) {
                               return Value::adopt(new ado::Catalog(services));
                             }};
const Component kAdoxTable{"adox.table",
                           [](const Services&) { return Value::adopt(new ado::CatalogTable()); }};
const Component kAdoxColumn{"adox.column",
                            [](const Services&) { return Value::adopt(new ado::CatalogColumn()); }};
const Component kAdoxIndex{"adox.index",
                           [](const Services&) { return Value::adopt(new ado::CatalogIndex()); }};
const Component kJetEngine{"jro.jetengine", [](const Services& services) {
                             return Value::adopt(new ado::JetEngine(services));
                           }};

}  // namespace quorvane
