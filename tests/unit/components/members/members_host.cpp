#include "members/members_host.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane {

std::string PageWithForm::header(std::string_view name) const {
  if (equalsNoCase(name, "Content-Type")) return "multipart/form-data; boundary=XX";
  if (equalsNoCase(name, "User-Agent")) {
    return "Mozilla/5.0 (X11; Linux x86_64; rv:115.0) Gecko/20100101 Firefox/115.0";
  }
  return {};
}

std::string_view PageWithForm::body() const {
  return "--XX\r\nContent-Disposition: form-data; name=\"title\"\r\n\r\nA view\r\n"
         "--XX\r\nContent-Disposition: form-data; name=\"place\"\r\n\r\nhere\r\n"
         "--XX\r\nContent-Disposition: form-data; name=\"first\"; "
         "filename=\"C:\\pics\\one.txt\"\r\n"
         "Content-Type: text/plain\r\n\r\nfirst file\r\n"
         "--XX\r\nContent-Disposition: form-data; name=\"second\"; filename=\"two.bin\"\r\n"
         "Content-Type: application/x-two\r\n\r\n22\r\n"
         "--XX--\r\n";
}

MembersHost::MembersHost(WatchedObjects& book) {
  std::filesystem::create_directory(folder_ / "mail");
  state_.Components = ComponentSource::Own;
  state_.ScriptFolders = folder_.path();
  state_.MainPath = paths::withSeparator(folder_.path());
  state_.ScriptsFolder = folder_.path();
  state_.MailFolder = folder_ / "mail";
  state_.AllowShell = true;
  process_->setCurrentFolder(folder_.path());
  settings_ = makeSettingsStorage(*files_, folder_ / "settings");
  services_ = std::make_unique<Services>(Services{state_, log_, clock_, *files_, random_, *process_,
                                                  nullptr, settings_.get(), &page_});
  host_ = std::make_unique<Watching<ScriptHost>>(book, *services_);
}

MembersHost::~MembersHost() {
  process_->setCurrentFolder("/");  // or the folder could not go
}

}  // namespace quorvane
