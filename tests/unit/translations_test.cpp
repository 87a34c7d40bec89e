#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "languages/translation_check.h"
#include "text/message_ids.h"

namespace NScrivolt::Languages {
namespace {

std::map<std::uint32_t, const MessageEntry*> ById(const MessageCatalogue& list) {
  std::map<std::uint32_t, const MessageEntry*> byId;
  for (std::size_t i = 0; i < list.count; ++i) byId.emplace(list.entries[i].id, &list.entries[i]);
  return byId;
}

std::set<std::uint32_t> Ids(const MessageCatalogue& list) {
  std::set<std::uint32_t> ids;
  for (std::size_t i = 0; i < list.count; ++i) ids.insert(list.entries[i].id);
  return ids;
}

std::u16string Upper(const char* code) {
  std::u16string upper;
  for (; *code != 0; ++code) upper += char16_t(*code >= 'a' && *code <= 'z' ? *code - 'a' + 'A' : *code);
  return upper;
}

std::u16string Replaced(std::u16string text, const std::u16string& from, const std::u16string& to) {
  const std::size_t at = text.find(from);
  if (at != std::u16string::npos) text.replace(at, from.size(), to);
  return text;
}

// Every translation has a text for each built-in message and no other.
TEST(Translations, HaveTheIdsOfTheBuiltInList) {
  for (const MessageCatalogue& translation : kTranslatedCatalogues) {
    EXPECT_EQ(Ids(translation), Ids(kBuiltInCatalogue)) << translation.listFile;
    EXPECT_EQ(Ids(translation).size(), translation.count) << translation.listFile << " writes an id twice";
  }
}

TEST(Translations, KeepThePlaceholdersOfEachText) {
  const auto builtIn = ById(kBuiltInCatalogue);
  for (const MessageCatalogue& translation : kTranslatedCatalogues) {
    for (const auto& [id, entry] : ById(translation)) {
      const auto original = builtIn.find(id);
      if (original == builtIn.end()) continue;  // reported by HaveTheIdsOfTheBuiltInList
      EXPECT_EQ(Placeholders(entry->text), Placeholders(original->second->text))
          << translation.listFile << ", message " << id << " " << entry->name;
    }
  }
}

// The generator's own check passes, so the build makes every module.
TEST(Translations, PassTheGeneratorsCheck) {
  for (const MessageCatalogue& translation : kTranslatedCatalogues) {
    for (const auto& problem : CheckTranslation(kBuiltInCatalogue, translation)) {
      ADD_FAILURE() << DescribeProblem(problem, kBuiltInCatalogue, translation);
    }
  }
}

// What the program reads from a module to register it, and where the
// module sends the user: its own abbreviation, a names list that names the
// language in itself and in English, its own help file, the same help pages
// and the same web addresses asking for pages in its language.
TEST(Translations, DescribeTheirOwnLanguage) {
  const auto builtIn = ById(kBuiltInCatalogue);
  for (const MessageCatalogue& translation : kTranslatedCatalogues) {
    SCOPED_TRACE(translation.listFile);
    const auto texts = ById(translation);
    const std::u16string code = Upper(translation.code);
    const std::u16string lower(translation.code, translation.code + std::char_traits<char>::length(translation.code));
    ASSERT_EQ(texts.count(MsgLanguageAbbreviation), 1u);
    EXPECT_EQ(std::u16string(texts.at(MsgLanguageAbbreviation)->text), code);
    const std::u16string names = texts.at(MsgLanguageNames)->text;
    EXPECT_EQ(names.rfind(code + u":", 0), 0u) << "the names list starts with the language's own name";
    EXPECT_NE(names.find(u"~EN:"), std::u16string::npos) << "the names list names the language in English";
    EXPECT_EQ(std::u16string(texts.at(MsgHelpFile)->text),
              Replaced(builtIn.at(MsgHelpFile)->text, u"_EN.chm", u"_" + code + u".chm"));
    for (const std::uint32_t topic : {MsgHelpTopicAbout, MsgHelpTopicCommandLine, MsgHelpTopicMainWindow,
                                      MsgHelpTopicSettings, MsgHelpTopicSupport, MsgHelpTopicIntroduction}) {
      EXPECT_EQ(std::u16string(texts.at(topic)->text), builtIn.at(topic)->text) << topic;
    }
    for (const std::uint32_t address : {MsgUpdatePageAddress, MsgHomePageAddress}) {
      EXPECT_EQ(std::u16string(texts.at(address)->text),
                Replaced(builtIn.at(address)->text, u"&lang=en&", u"&lang=" + lower + u"&"))
          << address;
    }
  }
}

}  // namespace
}  // namespace NScrivolt::Languages
