#include "help/archive_stream.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

std::string SampleStream() {
  return StreamedObject({"/a.htm", std::string("one\0two", 7)}) + StreamedObject({"/b.htm", ""}) +
         StreamEnd();
}

TEST(ArchiveStreamTest, ObjectsComeOutAsTheyWentIn) {
  const auto objects = ObjectsOfStream(SampleStream());
  ASSERT_TRUE(objects);
  ASSERT_EQ(2U, objects->size());
  EXPECT_EQ("/a.htm", (*objects)[0].Name);
  EXPECT_EQ(std::string("one\0two", 7), (*objects)[0].Bytes);
  EXPECT_EQ("/b.htm", (*objects)[1].Name);
  EXPECT_EQ("", (*objects)[1].Bytes);
}

TEST(ArchiveStreamTest, AnArchiveMayHoldNothing) {
  const auto objects = ObjectsOfStream(StreamEnd());
  ASSERT_TRUE(objects);
  EXPECT_TRUE(objects->empty());
}

TEST(ArchiveStreamTest, AStreamCutShortAnywhereIsNoStream) {
  const std::string stream = SampleStream();
  for (std::size_t length = 0; length < stream.size(); ++length) {
    EXPECT_FALSE(ObjectsOfStream(stream.substr(0, length))) << length;
  }
}

TEST(ArchiveStreamTest, BytesBehindTheEndMakeItNoStream) {
  EXPECT_FALSE(ObjectsOfStream(SampleStream() + "x"));
}

TEST(ArchiveStreamTest, ACountBeyondTheStreamMakesItNoStream) {
  EXPECT_FALSE(ObjectsOfStream("\xFF\xFF\xFF\xFFname"));
}

}  // namespace
}  // namespace veyra
