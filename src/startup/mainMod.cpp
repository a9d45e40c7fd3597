#include "startup/mainMod.h"

#include "startup/setting_rules.h"

namespace quorvane {

namespace {

/// A setting's place: the key, and the value's name in it.
struct Place {
  RegistryRoot root;
  std::string key;
  std::string value;
  bool inSubKey;
};

Place placeOf(const std::string& name, bool machineWide) {
  Place place{machineWide ? RegistryRoot::LocalMachine : RegistryRoot::CurrentUser,
              mainMod::kServerKey, name, false};
  const auto last = name.rfind('\\');
  if (last == std::string::npos) return place;
  place.key += "\\" + name.substr(0, last);
  place.value = name.substr(last + 1);
  place.inSubKey = true;
  return place;
}

}  // namespace

std::string mainMod::GetServerSetting(const std::string& name, const std::string& defaultText,
                                      bool machineWide) {
  const Place place = placeOf(name, machineWide);
  if (!place.inSubKey) registry_.CreateRegKey(place.root, place.key);
  std::string text = registry_.GetRegString(place.root, place.key, place.value);
  if (!text.empty() || defaultText.empty()) return text;
  registry_.CreateRegKey(place.root, place.key);
  registry_.SetRegString(place.root, place.key, place.value, defaultText);
  return defaultText;
}

void mainMod::SaveServerSetting(const std::string& name, const std::string& text,
                                bool machineWide) {
  const Place place = placeOf(name, machineWide);
  registry_.CreateRegKey(place.root, place.key);
  registry_.SetRegString(place.root, place.key, place.value, text);
}

void mainMod::LoadSettings() {
  state_.DefaultDocument = "index.qvs";
  for (const SettingRule& rule : settingRules()) {
    rule.take(state_, GetServerSetting(std::string(rule.name), std::string(rule.defaultText)));
  }
}

std::string mainMod::userLanguage() const {
  return registry_.GetRegString(RegistryRoot::CurrentUser, kUserKey, "LCID");
}

std::string mainMod::developerFolder() const {
  return registry_.GetRegString(RegistryRoot::LocalMachine, kProgramKey, "MainPath");
}

}  // namespace quorvane
