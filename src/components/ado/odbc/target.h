#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::ado {

/// Who asks for a connection, when the text does not say.
struct OdbcLogin {
  std::string user;
  std::string password;
};

/// The text for the driver manager that a page's connection text means: providers' words become
/// those of drivers, a driver that goes by another name here is one of the `installed` ones, and
/// what would load code or name files is left out. Throws the failure IM002 when there is no driver
/// for it. `provider` stands where the text names none.
std::string odbcText(std::string_view text, const std::string& provider, const OdbcLogin& login,
                     const std::vector<std::string>& installed);

}  // namespace quorvane::ado
