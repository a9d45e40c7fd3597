#include "handling_fixture.h"
#include "http/picture_copies.h"

namespace quorvane {

namespace {

class ImageRequests : public HandlingFixture {
 protected:
  ImageRequests() { files.put("/srv/Scripts/img/photo.jpg", "original"); }

  std::string bodyOf(const std::string& target, const std::string& headers = "") {
    const std::string text = get(target, headers);
    return text.substr(text.find("\r\n\r\n") + 4);
  }

  static inline const std::string kSource = "/srv/Scripts/img/photo.jpg";
  static inline const std::string kCopy = "/srv/Cache/^R100x80photo.jpg";
};

}  // namespace

TEST_F(ImageRequests, ACopyIsRenderedOnceAndKept) {
  files.stamp = clock.time - std::chrono::hours(1);
  const std::string text = get("/img/photo.jpg?rx=100&ry=80");
  EXPECT_TRUE(text.ends_with("\r\n\r\n" + kSource + " 100x80 kept"));
  EXPECT_NE(text.find("Content-Type: image/jpeg\r\n"
                      "Last-Modified: Mon, 09 Mar 2026 09:00:00 GMT\r\n"),
            std::string::npos);
  EXPECT_TRUE(files.stat(kCopy));
  bodyOf("/img/photo.jpg?rx=100&ry=80");
  EXPECT_EQ(images.renderings, 1);
}

TEST_F(ImageRequests, ParametersAreNumbersAndFlags) {
  EXPECT_EQ(bodyOf("/img/photo.jpg?rx=99.5&ar=0&gr=1"), kSource + " 100x0 stretched grey");
  EXPECT_TRUE(files.stat("/srv/Cache/^R100x0photo.jpg"));
  EXPECT_EQ(bodyOf("/img/photo.jpg?ry=7&ar=no&gr=yes"), kSource + " 0x7 kept");
  EXPECT_EQ(bodyOf("/img/PHOTO.jpg?RX=5"), kSource + " 5x0 kept");
}

TEST_F(ImageRequests, WithoutASizeTheOriginalIsServed) {
  for (const char* query : {"", "?rx=0&ry=0", "?rx=-5", "?rx=a&ry=", "?gr=1", "?rx=0.4",
                            "?rx=16385", "?rx=10&ry=99999", "?rx=99999999999"}) {
    EXPECT_EQ(bodyOf("/img/photo.jpg" + std::string(query)), "original") << query;
  }
  EXPECT_EQ(images.renderings, 0);
}

TEST_F(ImageRequests, ANewerSourceIsRenderedAgain) {
  bodyOf("/img/photo.jpg?rx=100&ry=80");
  files.stamp += std::chrono::seconds(1);
  files.put(kSource, "newer");
  bodyOf("/img/photo.jpg?rx=100&ry=80");
  EXPECT_EQ(images.renderings, 2);
}

TEST_F(ImageRequests, AnOfferedFilesCopyIsNotKept) {
  files.put("/data/photo.jpg", "private");
  aliases.offer("k", "/data/photo.jpg");
  EXPECT_EQ(bodyOf("/filebin$k?rx=100&ry=80"), "/data/photo.jpg 100x80 kept");
  EXPECT_TRUE(files.list("/srv/Cache").empty());
  EXPECT_EQ(bodyOf("/img/photo.jpg?rx=100&ry=80"), kSource + " 100x80 kept");
  EXPECT_EQ(bodyOf("/filebin$k?rx=100&ry=80"), "/data/photo.jpg 100x80 kept");
}

TEST_F(ImageRequests, ACopyOfItsOwnLeavesNothingBehind) {
  EXPECT_EQ(bodyOf("/img/photo.jpg?rx=100&ry=80&nc=1"), kSource + " 100x80 kept");
  EXPECT_TRUE(images.lastTarget.starts_with("/srv/Cache/^N"));
  EXPECT_TRUE(images.lastTarget.ends_with("photo.jpg"));
  EXPECT_TRUE(files.list("/srv/Cache").empty());
  bodyOf("/img/photo.jpg?rx=100&ry=80&nc=1");
  EXPECT_EQ(images.renderings, 2);

  state.EncodeImages = true;
  bodyOf("/img/photo.jpg?rx=100&ry=80&nc=1", "Accept-Encoding: gzip\r\n");
  EXPECT_TRUE(files.list("/srv/Cache").empty());
}

TEST_F(ImageRequests, APictureThatCannotBeRenderedIsServedAsItIs) {
  images.broken = true;
  EXPECT_EQ(bodyOf("/img/photo.jpg?rx=100"), "original");
  EXPECT_EQ(bodyOf("/img/photo.jpg?rx=100&nc=1"), "original");
  EXPECT_TRUE(files.list("/srv/Cache").empty());
}

TEST_F(ImageRequests, RangesAndCompressionApplyToTheCopy) {
  EXPECT_EQ(bodyOf("/img/photo.jpg?rx=100&ry=80", "Range: bytes=0-3\r\n"), "/srv");
  state.EncodeImages = true;
  std::string body = bodyOf("/img/photo.jpg?rx=100&ry=80", "Accept-Encoding: gzip\r\n");
  EXPECT_TRUE(clsZipString::UncompressString(body, clsZipString::kGzip));
  EXPECT_EQ(body, kSource + " 100x80 kept");
  EXPECT_TRUE(files.stat("/srv/Cache/^IMG^^R100X80PHOTO.JPG"));
}

TEST_F(ImageRequests, OnlyPicturesAreResized) {
  files.put("/srv/Scripts/a.txt", "text");
  files.put("/srv/Scripts/a.tif", "tiff");
  EXPECT_EQ(bodyOf("/a.txt?rx=5"), "text");
  EXPECT_EQ(bodyOf("/a.tif?rx=5"), "tiff");
  EXPECT_EQ(images.renderings, 0);
}

TEST_F(ImageRequests, CopiesAreBoundedWhateverSizesClientsAskFor) {
  const int most = static_cast<int>(PictureCopies::kMostCopies);
  for (int side = 1; side <= most + 10; ++side) {
    bodyOf("/img/photo.jpg?rx=" + std::to_string(side));
    bodyOf("/img/photo.jpg?rx=1");
  }
  EXPECT_EQ(files.list("/srv/Cache").size(), PictureCopies::kMostCopies);
  EXPECT_TRUE(files.stat("/srv/Cache/^R1x0photo.jpg")) << "the one in use stays";
  EXPECT_FALSE(files.stat("/srv/Cache/^R2x0photo.jpg"));
  EXPECT_EQ(images.renderings, most + 10);
}

TEST_F(ImageRequests, CompressedCopiesOfCopiesAreBoundedToo) {
  state.EncodeImages = true;
  for (int side = 1; side <= static_cast<int>(PictureCopies::kMostCopies); ++side) {
    bodyOf("/img/photo.jpg?rx=" + std::to_string(side), "Accept-Encoding: gzip\r\n");
  }
  EXPECT_EQ(files.list("/srv/Cache").size(), PictureCopies::kMostCopies);
  EXPECT_TRUE(files.stat("/srv/Cache/^IMG^^R1024X0PHOTO.JPG"));
}

}  // namespace quorvane
