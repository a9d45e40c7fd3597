#pragma once

#include "http/addresses.h"

namespace quorvane {

/// Addresses in the way of sites with customary pages: names are percent-decoded, every folder has
/// default documents of its own and its "/" behind it, files of all known types are served but for
/// those that sites keep for themselves, a page's name may have more path behind it, and a page may
/// speak for what is not found.
class CustomaryAddresses final : public Addresses {
 public:
  /// How the path of a target is written when it gets here.
  enum class Spelling { AsItCame, Decoded };

  CustomaryAddresses(const FileSources& sources, Spelling spelling)
      : sources_(sources), spelling_(spelling), types_(ContentTypes::Tables::Todays) {}

  Wanted asked(clsHTTPParser& request) const override;
  Place placeOf(Wanted& wanted, clsHTTPParser& request) override;
  std::optional<Wanted> standIn(const Wanted& missing, const clsHTTPParser& request) const override;
  std::string missingName(const std::string& localFile,
                          const clsHTTPParser& request) const override;
  ContentTypes& types() override { return types_; }

 private:
  Place look(Wanted& wanted, const clsHTTPParser& request);
  Place pageBefore(Wanted& wanted, Place place, const clsHTTPParser& request);
  Place defaultDocument(Wanted& wanted);
  bool isModuleFolder(const Wanted& wanted);
  Place::Kind kindOf(const std::string& name);
  std::optional<Place> find(const Wanted& wanted) const;
  Wanted at(Wanted wanted, const std::string& path) const;

  const FileSources sources_;
  const Spelling spelling_;
  ContentTypes types_;
};

}  // namespace quorvane
