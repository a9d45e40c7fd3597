#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "components/language_texts.h"
#include "components/shared_values.h"
#include "platform/services.h"
#include "support/file_aliases.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// The files that pages offer for download: `QvS.Files`.
class OfferedFiles final : public vbs::NativeObject<OfferedFiles> {
 public:
  /// Both outlive the object.
  OfferedFiles(const Services& services, FileAliases& aliases)
      : services_(services), aliases_(aliases) {}

  std::string_view typeName() const override { return "Files"; }
  static std::span<const vbs::Member<OfferedFiles>> members();

 private:
  vbs::Value callAdd(vbs::Args args);  ///< path[, minutes]: the key for "filebin$" targets
  vbs::Value callRemove(vbs::Args args);

  const Services& services_;
  FileAliases& aliases_;
};

/// What pages know as "QvS": the part of the server that is the same for every page. Lives as
/// long as the server runs.
class ApplicationComponent final : public vbs::NativeObject<ApplicationComponent> {
 public:
  /// Both outlive the component.
  ApplicationComponent(const Services& services, FileAliases& aliases);
  ~ApplicationComponent() override;  ///< ends the shared values: they may hold one another

  /// Null, as at first: no texts. `texts` outlives the component or is replaced before.
  void setLanguage(const LanguageTexts* texts) { texts_ = texts; }

  /// What pages share, for pages that know it by another name.
  const vbs::Ref<SharedValues>& shared() const { return shared_; }

  std::string_view typeName() const override { return "QvS"; }
  static std::span<const vbs::Member<ApplicationComponent>> members();
  static constexpr std::size_t kGlobalMembers = 4;  ///< the first rows of members()

 private:
  vbs::Value getApplication(vbs::Args args);
  void putApplication(vbs::Args args, vbs::CallKind);
  vbs::Value getVersion(vbs::Args);
  vbs::Value getFiles(vbs::Args);
  vbs::Value callText(vbs::Args args);

  std::string version_;  ///< of the server, as Version shows it
  vbs::Ref<OfferedFiles> files_;
  vbs::Ref<SharedValues> shared_ = vbs::make<SharedValues>("Application");
  const LanguageTexts* texts_ = nullptr;
};

}  // namespace quorvane
