#include "components/xml_document.h"

#include "components/xml/document.h"
#include "components/xml/processor.h"

namespace quorvane {

namespace {

template <bool selectsByXPath, bool allowsType>
vbs::Value create(const Services& services) {
  xml::DocumentSettings settings;
  settings.form = {selectsByXPath, allowsType};
  return vbs::Value::adopt(new xml::Document(services, settings));
}

}  // namespace

const Component kXmlDocument{
    "msxml2.domdocument microsoft.xmldom msxml.domdocument msxml2.freethreadeddomdocument "
    "msxml.freethreadeddomdocument microsoft.freethreadedxmldom",
    &create<false, true>};

const Component kXmlDocument4{
    "msxml2.domdocument.4.0 msxml2.domdocument.5.0 msxml2.freethreadeddomdocument.4.0 "
    "msxml2.freethreadeddomdocument.5.0",
    &create<true, true>};

const Component kXmlDocument6{"msxml2.domdocument.6.0 msxml2.freethreadeddomdocument.6.0",
                              &create<true, false>};

const Component kXslTemplate{"msxml2.xsltemplate", [](const Services&) {
                               return vbs::Value::adopt(new xml::XslTemplate());
                             }};

}  // namespace quorvane
