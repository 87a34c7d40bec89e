#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "languages/translation_check.h"

namespace NScrivolt::Languages {

// Names the kind in a failed expectation.
void PrintTo(ProblemKind kind, std::ostream* out) {
  static const char* const kNames[] = {"DuplicateId",        "MissingText",       "UnknownId",
                                       "NameDiffers",        "PlaceholdersDiffer", "LineBreakEndsDiffer"};
  *out << kNames[static_cast<int>(kind)];
}

namespace {

struct PlaceholderCase {
  const char16_t* text;
  std::vector<std::u16string> expected;
};

// Only upper-case words in brackets count, sorted, each as often as written.
TEST(TranslationCheck, FindsPlaceholders) {
  const PlaceholderCase cases[] = {
      {u"", {}},
      {u"no placeholder", {}},
      {u"\"[SWITCH]\"", {u"[SWITCH]"}},
      {u"[ERROR] at [LINE]", {u"[ERROR]", u"[LINE]"}},
      {u"[LINE] before [ERROR]", {u"[ERROR]", u"[LINE]"}},
      {u"[X][X]", {u"[X]", u"[X]"}},
      {u"[[A]]", {u"[A]"}},
      {u"[file] [A1] [] [ A] [A", {}},
      {u"SWITCH [OPTION...] [SWITCH [OPTION...]]", {}},
      {u"/set NAME [VALUE]", {u"[VALUE]"}},
      {u"[OFFSET][EXTRAINFO]", {u"[EXTRAINFO]", u"[OFFSET]"}},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(Placeholders(cases[i].text), cases[i].expected) << "case " << i;
  }
}

struct BreakCase {
  const char16_t* text;
  const char16_t* leading;
  const char16_t* trailing;
};

TEST(TranslationCheck, FindsLineBreaksAtTheEnds) {
  const BreakCase cases[] = {
      {u"", u"", u""},
      {u"plain", u"", u""},
      {u"a\nb", u"", u""},
      {u";\ninvalid", u"", u""},
      {u"\n\nonly leading", u"\n\n", u""},
      {u"Error(s) occured;\r\n", u"", u"\r\n"},
      {u"\r\n", u"\r\n", u""},
      {u"\nboth\n", u"\n", u"\n"},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    const auto ends = LineBreakEnds(cases[i].text);
    EXPECT_EQ(ends.first, cases[i].leading) << "case " << i;
    EXPECT_EQ(ends.second, cases[i].trailing) << "case " << i;
  }
}

constexpr MessageEntry kReference[] = {
    {1, "Done", u"Processed \"[INFILEPATH]\" to \"[OUTFILEPATH]\"."},
    {2, "Errors", u"Error(s) occured;\r\n"},
    {3, "Usage", u"Usage:\n  /set NAME [VALUE]\n"},
    {4, "Plain", u"no error"},
};

struct CheckCase {
  const char* what;
  std::vector<MessageEntry> translation;
  std::vector<MessageEntry> reference;  // empty: kReference
  std::vector<std::pair<ProblemKind, std::uint32_t>> expected;
};

std::vector<std::pair<ProblemKind, std::uint32_t>> Check(const CheckCase& c) {
  const std::vector<MessageEntry> reference =
      c.reference.empty() ? std::vector<MessageEntry>(std::begin(kReference), std::end(kReference)) : c.reference;
  const MessageCatalogue builtIn{"en", "English", "built-in.h", reference.data(), reference.size()};
  const MessageCatalogue translated{"xx", "Test", "translated.h", c.translation.data(), c.translation.size()};
  std::vector<std::pair<ProblemKind, std::uint32_t>> found;
  for (const TranslationProblem& problem : CheckTranslation(builtIn, translated)) {
    found.emplace_back(problem.kind, problem.id);
    EXPECT_FALSE(DescribeProblem(problem, builtIn, translated).empty());
  }
  return found;
}

const MessageEntry kDone{1, "Done", u"\"[INFILEPATH]\" verwerkt tot \"[OUTFILEPATH]\"."};
const MessageEntry kErrors{2, "Errors", u"Er zijn fouten opgetreden;\r\n"};
const MessageEntry kUsage{3, "Usage", u"Gebruik:\n  /set NAME [VALUE]\n"};
const MessageEntry kPlain{4, "Plain", u"geen fout"};

TEST(TranslationCheck, ReportsWhatCannotBeUsed) {
  using K = ProblemKind;
  const CheckCase cases[] = {
      {"complete", {kDone, kErrors, kUsage, kPlain}, {}, {}},
      {"written in another order", {kPlain, kUsage, kErrors, kDone}, {}, {}},
      {"an id missing", {kDone, kErrors, kPlain}, {}, {{K::MissingText, 3}}},
      {"every id missing", {}, {}, {{K::MissingText, 1}, {K::MissingText, 2}, {K::MissingText, 3}, {K::MissingText, 4}}},
      {"an id too many", {kDone, kErrors, kUsage, kPlain, {9, "Extra", u"extra"}}, {}, {{K::UnknownId, 9}}},
      {"an id written twice", {kDone, kErrors, kUsage, kPlain, {4, "Plain", u"nog eens"}}, {}, {{K::DuplicateId, 4}}},
      {"an id twice in the built-in list",
       {kDone},
       {{1, "Done", u"[INFILEPATH] [OUTFILEPATH]"}, {1, "Done", u"again"}},
       {{K::DuplicateId, 1}}},
      {"another name", {kDone, kErrors, kUsage, {4, "Plane", u"geen fout"}}, {}, {{K::NameDiffers, 4}}},
      {"a placeholder lost",
       {{1, "Done", u"\"[INFILEPATH]\" verwerkt."}, kErrors, kUsage, kPlain},
       {},
       {{K::PlaceholdersDiffer, 1}}},
      {"a placeholder translated",
       {{1, "Done", u"\"[INVOERPAD]\" verwerkt tot \"[OUTFILEPATH]\"."}, kErrors, kUsage, kPlain},
       {},
       {{K::PlaceholdersDiffer, 1}}},
      {"a placeholder twice",
       {{1, "Done", u"[INFILEPATH] [INFILEPATH] [OUTFILEPATH]"}, kErrors, kUsage, kPlain},
       {},
       {{K::PlaceholdersDiffer, 1}}},
      {"placeholders in another order",
       {{1, "Done", u"Naar \"[OUTFILEPATH]\" verwerkt: \"[INFILEPATH]\"."}, kErrors, kUsage, kPlain},
       {},
       {}},
      {"a placeholder added", {kDone, kErrors, kUsage, {4, "Plain", u"geen fout [ERROR]"}}, {}, {{K::PlaceholdersDiffer, 4}}},
      {"the closing line break lost",
       {kDone, {2, "Errors", u"Er zijn fouten opgetreden;"}, kUsage, kPlain},
       {},
       {{K::LineBreakEndsDiffer, 2}}},
      {"a line feed for a carriage return and line feed",
       {kDone, {2, "Errors", u"Er zijn fouten opgetreden;\n"}, kUsage, kPlain},
       {},
       {{K::LineBreakEndsDiffer, 2}}},
      {"a leading line break added", {kDone, kErrors, kUsage, {4, "Plain", u"\ngeen fout"}}, {}, {{K::LineBreakEndsDiffer, 4}}},
      {"more lines inside", {kDone, kErrors, {3, "Usage", u"Gebruik:\n\n  /set NAME\n  [VALUE]\n"}, kPlain}, {}, {}},
      {"several problems",
       {{1, "Done", u"verwerkt"}, {2, "Fouten", u"fouten"}, kPlain, {7, "New", u"nieuw"}},
       {},
       {{K::PlaceholdersDiffer, 1},
        {K::NameDiffers, 2},
        {K::LineBreakEndsDiffer, 2},
        {K::MissingText, 3},
        {K::UnknownId, 7}}},
  };
  for (const CheckCase& c : cases) {
    EXPECT_EQ(Check(c), c.expected) << c.what;
  }
}

TEST(TranslationCheck, DescribesTheMessageAndTheLists) {
  const MessageEntry translation[] = {kDone, kErrors, kUsage};
  const MessageCatalogue builtIn{"en", "English", "text/list.h", kReference, std::size(kReference)};
  const MessageCatalogue translated{"nl", "Dutch", "languages/nl/list.h", translation, std::size(translation)};
  const auto problems = CheckTranslation(builtIn, translated);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(DescribeProblem(problems[0], builtIn, translated),
            "message 4 (Plain) of text/list.h has no Dutch text in languages/nl/list.h");
}

}  // namespace
}  // namespace NScrivolt::Languages
