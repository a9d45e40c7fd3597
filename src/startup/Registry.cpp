#include "startup/Registry.h"

namespace quorvane {

namespace {

/// The room that an expandable text, its NUL included, is read into; a longer one can't be read.
constexpr std::size_t kExpandableRoom = 254;

std::string shortNumber(const std::string& bytes) {
  unsigned value = 0;
  if (!bytes.empty()) value = static_cast<unsigned char>(bytes[0]);
  if (bytes.size() > 1) value |= static_cast<unsigned>(static_cast<unsigned char>(bytes[1])) << 8;
  return std::to_string(static_cast<std::int16_t>(value));
}

}  // namespace

std::string TrimAtNul(std::string text) {
  if (const auto nul = text.find('\0'); nul != std::string::npos) text.resize(nul);
  return text;
}

bool Registry::CreateRegKey(RegistryRoot root, const std::string& key, const std::string& machine) {
  return machine.empty() && storage_.createKey(root, key);
}

bool Registry::SetRegString(RegistryRoot root, const std::string& key, const std::string& name,
                            const std::string& text, const std::string& machine) {
  return machine.empty() && storage_.writeText(root, key, name, text);
}

std::string Registry::GetRegString(RegistryRoot root, const std::string& key,
                                   const std::string& name, const std::string& machine) const {
  if (!machine.empty() || !storage_.keyExists(root, key)) return "";
  return ReadRegValue({root, key}, name);
}

std::string Registry::ReadRegValue(const OpenKey& key, const std::string& name) const {
  auto value = storage_.read(key.root, key.key, name);
  if (!value) return "";
  switch (value->type) {
    case StoredType::Text:
      return TrimAtNul(std::move(value->data));
    case StoredType::ExpandableText:
      return value->data.size() <= kExpandableRoom ? TrimAtNul(std::move(value->data)) : "";
    case StoredType::Binary:
      return shortNumber(value->data);
    case StoredType::Other:
      break;
  }
  return "";
}

}  // namespace quorvane
