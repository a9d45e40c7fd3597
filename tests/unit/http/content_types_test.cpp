#include "http/content_types.h"

#include <gtest/gtest.h>

#include "http/serverMod.h"
#include "support/server_state.h"

namespace quorvane {

TEST(AllowedExtensions, AreTheListedOnes) {
  for (const char* path : {"/a/photo.JPG", "x.qvs", "a.b.txt", "/x.tiff", "m.wpl"}) {
    EXPECT_TRUE(isAllowedExtension(path)) << path;
  }
  for (const char* path : {"setup.exe", "name", "", "x.", "x..", "a.zip", "a.ht", "a.css.bmp.",
                           "/a.txt/b", "x.qvs ", "a.tar.gz"}) {
    EXPECT_FALSE(isAllowedExtension(path)) << path;
  }
}

TEST(GzipEligibility, FollowsTheSettings) {
  ServerState state;
  EXPECT_FALSE(isGzipEligible("a.css", state));
  EXPECT_FALSE(isGzipEligible("a.png", state));
  state.EncodeStatic = true;
  EXPECT_TRUE(isGzipEligible("a.CSS", state));
  EXPECT_TRUE(isGzipEligible("a.html", state));
  EXPECT_FALSE(isGzipEligible("a.png", state));
  EXPECT_FALSE(isGzipEligible("a.mp3", state));
  EXPECT_FALSE(isGzipEligible("css", state));
  state.EncodeStatic = false;
  state.EncodeImages = true;
  EXPECT_TRUE(isGzipEligible("a.png", state));
  EXPECT_FALSE(isGzipEligible("a.tif", state));
  EXPECT_FALSE(isGzipEligible("a.css", state));
}

TEST(ContentTypes, KnowTheTellingRows) {
  ContentTypes types;
  EXPECT_EQ(ContentTypes::size(), 190u);
  EXPECT_EQ(types.typeOf("photo.JPG"), "image/jpeg");
  EXPECT_EQ(types.typeOf("archive.tar.gz"), "application/x-gzip");
  EXPECT_EQ(types.typeOf("a.tgz"), "application/x-compressed");
  EXPECT_EQ(types.typeOf("a.qvs"), "text/html");
  EXPECT_EQ(types.typeOf("a.js"), "application/x-javascript");
  EXPECT_EQ(types.typeOf("a.pko"), "application/ynd.ms-pkipko");
  EXPECT_EQ(types.typeOf("a.323"), "text/h323");
  EXPECT_EQ(types.typeOf("a.z"), "application/x-compress");
  EXPECT_EQ(types.typeOf("a.mht"), "message/rfc822");
  EXPECT_EQ(types.typeOf("a.class"), "application/octet-stream");
}

TEST(ContentTypes, UnknownFilesGetTheDefault) {
  ContentTypes types;
  EXPECT_EQ(types.typeOf("name"), "application/octet-stream");
  EXPECT_EQ(types.typeOf("name", "x/y"), "x/y");
  EXPECT_EQ(types.typeOf("a.unknown", "x/y"), "x/y");
  EXPECT_EQ(types.typeOf("a.", "x/y"), "x/y");
}

TEST(ContentTypes, TheMemoIsNotDisturbedByUnknownExtensions) {
  ContentTypes types;
  EXPECT_EQ(types.typeOf("a.gif"), "image/gif");
  EXPECT_EQ(types.typeOf("b.GIF"), "image/gif");
  EXPECT_EQ(types.typeOf("b.nothing"), "application/octet-stream");
  EXPECT_EQ(types.typeOf("b.gif", "x/y"), "image/gif");
  EXPECT_EQ(types.typeOf("b.png"), "image/png");
}

TEST(ServerName, CarriesTheVersion) {
  ServerState state;
  state.AppVersion = "1.2.3";
  EXPECT_EQ(serverName(state), "Quorvane-Server/1.2.3");
}

}  // namespace quorvane
