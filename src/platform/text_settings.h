#pragma once

#include "platform/settings_storage.h"
#include "support/files.h"

namespace quorvane {

/// Settings as a tree of text files, for people and editors. The key
/// HKEY_LOCAL_MACHINE\A\B is the file <root>/HKEY_LOCAL_MACHINE/A/B.ini and its sub-keys stand in
/// the folder B beside it. A file holds lines "Name=Text"; every other line is left as it stands,
/// and a file is replaced whole or not at all. Names lose blanks at their ends, texts are kept as
/// they are. A byte order mark in front of the file is passed over. CR, LF, NUL and the percent
/// sign stand in a text as %0D, %0A, %00 and %25 (a percent sign before anything else stands for
/// itself); names write "=" as %3D.
class TextSettings final : public SettingsStorage {
 public:
  /// `root` and the folders above it are made when the first key is.
  TextSettings(const Files& files, std::string root) : files_(files), root_(std::move(root)) {}

  bool keyExists(RegistryRoot root, const std::string& key) const override;
  bool createKey(RegistryRoot root, const std::string& key) override;
  std::optional<StoredValue> read(RegistryRoot root, const std::string& key,
                                  const std::string& name) const override;
  bool writeText(RegistryRoot root, const std::string& key, const std::string& name,
                 const std::string& text) override;
  std::vector<StoredLine> lines(RegistryRoot root, const std::string& key) const override;

 private:
  std::optional<std::string> fileOf(RegistryRoot root, const std::string& key) const;

  const Files& files_;
  std::string root_;
};

}  // namespace quorvane
