#include "http/error_responses.h"

#include <gtest/gtest.h>

#include "http/response_heads.h"
#include "platform/fake/fake_clock.h"
#include "support/server_state.h"

namespace quorvane {

namespace {

class ErrorResponses : public testing::Test {
 protected:
  static ServerState stateOfVersion(const char* version) {
    ServerState made;
    made.AppVersion = version;
    return made;
  }

  ServerState state = stateOfVersion("1.2.3");
  FakeClock clock;
  ResponseHeads heads{state, clock};
};

}  // namespace

TEST_F(ErrorResponses, NotFoundToTheByte) {
  EXPECT_EQ(error_responses::notFound(heads, "<10chars>x"),
            "HTTP/1.1 404 No Found\r\n"
            "Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Connection: Close\r\n"
            "Content-Type: text/html\r\n"
            "Content-Length: 304\r\n"
            "\r\n"
            "<html><head><title>The page cannot be found</title></head><body>"
            "<font face='Arial' size='4' color='#990000'><b>HTTP/1.1 404 Not found</b></font><hr>"
            "<p><font face='Verdana' size='2'><b>Error 404</b><br>"
            "<font color='#990000'>The page cannot be found</font><br><br>"
            "<i><10chars>x</i></font></p></body></html>");
}

TEST_F(ErrorResponses, BadRequestToTheByte) {
  const std::string text = error_responses::badRequest(heads);
  EXPECT_EQ(text,
            "HTTP/1.1 400 Bad Request\r\n"
            "Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Connection: Close\r\n"
            "Content-Type: text/html\r\n"
            "Content-Length: 268\r\n"
            "\r\n"
            "<html><head><title>400 Bad Request</title></head><body>"
            "<font face='Arial' size='4' color='#990000'><b>Bad Request</b></font><hr>"
            "<p><font face='Verdana' size='2' color='#990000'>Your browser sent a request that "
            "this server could not understand.</font></p></body></html>");
  EXPECT_EQ(text.size() - text.find("\r\n\r\n") - 4, 268u);
}

}  // namespace quorvane
