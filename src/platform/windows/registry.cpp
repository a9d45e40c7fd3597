#include "platform/windows/registry.h"

#include <windows.h>

#include <utility>

namespace quorvane {

namespace {

class Key {
 public:
  Key() = default;
  Key(Key&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
  Key& operator=(Key&&) = delete;
  ~Key() {
    if (key_) ::RegCloseKey(key_);
  }

  explicit operator bool() const { return key_ != nullptr; }
  HKEY get() const { return key_; }
  HKEY* out() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

HKEY rootOf(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::CurrentUser:
      return HKEY_CURRENT_USER;
    case RegistryRoot::LocalMachine:
      return HKEY_LOCAL_MACHINE;
    case RegistryRoot::Users:
      return HKEY_USERS;
    case RegistryRoot::ClassesRoot:
      return HKEY_CLASSES_ROOT;
  }
  return nullptr;
}

Key opened(RegistryRoot root, const std::string& path, REGSAM access) {
  Key key;
  const HKEY above = rootOf(root);
  if (!above || ::RegOpenKeyExA(above, path.c_str(), 0, access, key.out()) != ERROR_SUCCESS) {
    return {};
  }
  return key;
}

StoredType typeOf(DWORD type) {
  switch (type) {
    case REG_SZ:
      return StoredType::Text;
    case REG_EXPAND_SZ:
      return StoredType::ExpandableText;
    case REG_BINARY:
      return StoredType::Binary;
    default:
      return StoredType::Other;
  }
}

class WindowsRegistry final : public SettingsStorage {
 public:
  bool keyExists(RegistryRoot root, const std::string& path) const override {
    return static_cast<bool>(opened(root, path, KEY_READ));
  }

  bool createKey(RegistryRoot root, const std::string& path) override {
    if (opened(root, path, KEY_ALL_ACCESS)) return true;
    Key key;
    const HKEY above = rootOf(root);
    char type[] = "REG_DWORD";  // the class of keys that this program has always made
    return above && ::RegCreateKeyExA(above, path.c_str(), 0, type, REG_OPTION_NON_VOLATILE,
                                      KEY_ALL_ACCESS, nullptr, key.out(), nullptr) == ERROR_SUCCESS;
  }

  std::optional<StoredValue> read(RegistryRoot root, const std::string& path,
                                  const std::string& name) const override {
    const Key key = opened(root, path, KEY_READ);
    if (!key) return std::nullopt;
    StoredValue value;
    DWORD type = 0;
    DWORD size = 0;
    if (::RegQueryValueExA(key.get(), name.c_str(), nullptr, &type, nullptr, &size) !=
        ERROR_SUCCESS) {
      return std::nullopt;
    }
    value.data.resize(size);
    if (::RegQueryValueExA(key.get(), name.c_str(), nullptr, &type,
                           reinterpret_cast<BYTE*>(value.data.data()), &size) != ERROR_SUCCESS) {
      return std::nullopt;
    }
    value.data.resize(size);
    value.type = typeOf(type);
    return value;
  }

  bool writeText(RegistryRoot root, const std::string& path, const std::string& name,
                 const std::string& text) override {
    const Key key = opened(root, path, KEY_ALL_ACCESS);
    return key && ::RegSetValueExA(key.get(), name.c_str(), 0, REG_SZ,
                                   reinterpret_cast<const BYTE*>(text.c_str()),
                                   static_cast<DWORD>(text.size())) == ERROR_SUCCESS;
  }

  std::vector<StoredLine> lines(RegistryRoot root, const std::string& path) const override {
    constexpr DWORD kLongestName = 16384;
    std::vector<StoredLine> all;
    const Key key = opened(root, path, KEY_READ);
    if (!key) return all;
    std::string name(kLongestName, '\0');
    for (DWORD i = 0;; ++i) {
      DWORD length = kLongestName;
      if (::RegEnumValueA(key.get(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
          ERROR_SUCCESS) {
        return all;
      }
      const std::string own = name.substr(0, length);
      const auto value = read(root, path, own);
      const std::string text = value ? value->data.substr(0, value->data.find('\0')) : "";
      all.push_back({i + 1, own, text});
    }
  }
};

}  // namespace

std::unique_ptr<SettingsStorage> makeRegistry() {
  return std::make_unique<WindowsRegistry>();
}

}  // namespace quorvane
