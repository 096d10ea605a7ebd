#include "tarvola/ado/engine/bounded_cache.h"

#include <gtest/gtest.h>

#include <set>

namespace tarvola::ado::engine {
namespace {

TEST(BoundedCache, KeepsWhatWasUsedLast) {
  BoundedCache<int> cache(3);
  cache.add("a", 1);
  cache.add("b", 2);
  cache.add("c", 3);
  ASSERT_NE(cache.find("a"), nullptr);
  cache.add("d", 4);
  EXPECT_EQ(cache.size(), 3U);
  EXPECT_EQ(cache.find("b"), nullptr) << "b was not used for longest";
  EXPECT_EQ(*cache.find("a"), 1);
  EXPECT_EQ(*cache.find("c"), 3);
  EXPECT_EQ(*cache.find("d"), 4);
}

TEST(BoundedCache, FindsNothingForAKeyThatWasNotAdded) {
  BoundedCache<int> cache(2);
  EXPECT_EQ(cache.find(""), nullptr);
  cache.add("", 7);
  EXPECT_EQ(*cache.find(""), 7);
  EXPECT_EQ(cache.find("x"), nullptr);
  cache.clear();
  EXPECT_EQ(cache.find(""), nullptr);
}

TEST(KeyHash, TellsTextsOfAllLengthsApart) {
  std::set<std::uint64_t> hashes;
  std::string text;
  for (int length = 0; length < 200; ++length) {
    hashes.insert(hashKey(text));
    hashes.insert(hashKey(text + '\0'));
    text += 'x';
  }
  EXPECT_EQ(hashes.size(), 400U);
}

TEST(KeyHash, SeesEverySingleLetter) {
  const std::string text(77, 'a');
  std::set<std::uint64_t> hashes{hashKey(text)};
  for (std::size_t place = 0; place < text.size(); ++place) {
    std::string changed = text;
    changed[place] = 'b';
    hashes.insert(hashKey(changed));
  }
  EXPECT_EQ(hashes.size(), text.size() + 1);
}

}  // namespace
}  // namespace tarvola::ado::engine
