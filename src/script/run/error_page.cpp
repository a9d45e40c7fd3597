#include "script/run/error_page.h"

namespace quorvane {

std::string errorPage(std::int32_t number, std::string_view description, std::string_view pageName,
                      std::int64_t line) {
  std::string page =
      "<html><head><title>QVServer Script Error</title></head><body>"
      "<font face='Arial' size='4' color='#990000'><b>QVScript Error</b></font><hr>"
      "<p><font face='Verdana' size='2'><b>Error #";
  page.append(std::to_string(number)).append("</b><br><font color='#990000'>");
  page.append(description).append("</font><br><br><i>");
  page.append(pageName).append(", line ").append(std::to_string(line));
  return page.append("</i></font></p></body></html>");
}

}  // namespace quorvane
