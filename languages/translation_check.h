// Compares a translated message list with the built-in one: the same ids
// under the same names, and texts that keep what the code fills in or
// relies on (the placeholders, and the line breaks at either end).
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "languages/message_catalogues.h"

namespace NScrivolt::Languages {

enum class ProblemKind {
  DuplicateId,         // an id appears twice in one list
  MissingText,         // a built-in id has no translated text
  UnknownId,           // a translated id the built-in list lacks
  NameDiffers,         // the same id under another name
  PlaceholdersDiffer,  // not the same [PLACEHOLDERS], counted
  LineBreakEndsDiffer  // other line breaks at the start or the end
};

struct TranslationProblem {
  ProblemKind kind;
  std::uint32_t id;
  const char* name;              // the message's name in `list`
  const MessageCatalogue* list;  // the list the problem was found in
};

// The placeholders of a text (upper-case words in square brackets) in sorted
// order, each as often as it occurs.
inline std::vector<std::u16string> Placeholders(const std::u16string& text) {
  std::vector<std::u16string> found;
  for (std::size_t open = text.find(u'['); open != std::u16string::npos; open = text.find(u'[', open + 1)) {
    std::size_t end = open + 1;
    while (end < text.size() && text[end] >= u'A' && text[end] <= u'Z') ++end;
    if (end > open + 1 && end < text.size() && text[end] == u']') found.push_back(text.substr(open, end - open + 1));
  }
  std::sort(found.begin(), found.end());
  return found;
}

// The line-break characters with which a text begins and ends.
inline std::pair<std::u16string, std::u16string> LineBreakEnds(const std::u16string& text) {
  const auto isBreak = [](char16_t c) { return c == u'\r' || c == u'\n'; };
  std::size_t lead = 0;
  while (lead < text.size() && isBreak(text[lead])) ++lead;
  std::size_t trail = text.size();
  while (trail > lead && isBreak(text[trail - 1])) --trail;
  return {text.substr(0, lead), text.substr(trail)};
}

namespace Detail {

using EntriesById = std::map<std::uint32_t, const MessageEntry*>;

inline EntriesById IndexById(const MessageCatalogue& list, std::vector<TranslationProblem>& problems) {
  EntriesById byId;
  for (std::size_t i = 0; i < list.count; ++i) {
    if (!byId.emplace(list.entries[i].id, &list.entries[i]).second) {
      problems.push_back({ProblemKind::DuplicateId, list.entries[i].id, list.entries[i].name, &list});
    }
  }
  return byId;
}

inline void CompareTexts(const MessageEntry& builtIn, const MessageEntry& translated, const MessageCatalogue& translation,
                         std::vector<TranslationProblem>& problems) {
  if (std::string(builtIn.name) != translated.name) {
    problems.push_back({ProblemKind::NameDiffers, translated.id, translated.name, &translation});
  }
  if (Placeholders(builtIn.text) != Placeholders(translated.text)) {
    problems.push_back({ProblemKind::PlaceholdersDiffer, translated.id, translated.name, &translation});
  }
  if (LineBreakEnds(builtIn.text) != LineBreakEnds(translated.text)) {
    problems.push_back({ProblemKind::LineBreakEndsDiffer, translated.id, translated.name, &translation});
  }
}

}  // namespace Detail

// Every problem of `translation` measured against `builtIn`: duplicates in
// either list first, then the built-in ids in order, then the ids only the
// translation has. Empty when the translation can be used.
inline std::vector<TranslationProblem> CheckTranslation(const MessageCatalogue& builtIn,
                                                        const MessageCatalogue& translation) {
  std::vector<TranslationProblem> problems;
  const Detail::EntriesById builtInById = Detail::IndexById(builtIn, problems);
  const Detail::EntriesById translatedById = Detail::IndexById(translation, problems);
  for (const auto& [id, entry] : builtInById) {
    const auto translated = translatedById.find(id);
    if (translated == translatedById.end()) {
      problems.push_back({ProblemKind::MissingText, id, entry->name, &translation});
    } else {
      Detail::CompareTexts(*entry, *translated->second, translation, problems);
    }
  }
  for (const auto& [id, entry] : translatedById) {
    if (builtInById.count(id) == 0) problems.push_back({ProblemKind::UnknownId, id, entry->name, &translation});
  }
  return problems;
}

// One line for a person who has to fix the list.
inline std::string DescribeProblem(const TranslationProblem& problem, const MessageCatalogue& builtIn,
                                   const MessageCatalogue& translation) {
  const std::string id = std::to_string(problem.id) + " (" + problem.name + ")";
  const std::string language = translation.language;
  switch (problem.kind) {
    case ProblemKind::DuplicateId:
      return "message " + id + " is written more than once in " + problem.list->listFile;
    case ProblemKind::MissingText:
      return "message " + id + " of " + builtIn.listFile + " has no " + language + " text in " + translation.listFile;
    case ProblemKind::UnknownId:
      return "message " + id + " of " + translation.listFile + " is not in " + builtIn.listFile;
    case ProblemKind::NameDiffers:
      return "message " + id + " has another name in " + translation.listFile + " than in " + builtIn.listFile;
    case ProblemKind::PlaceholdersDiffer:
      return "the " + language + " text of message " + id + " in " + translation.listFile +
             " does not have the same [PLACEHOLDERS] as the " + builtIn.language + " text";
    case ProblemKind::LineBreakEndsDiffer:
      return "the " + language + " text of message " + id + " in " + translation.listFile +
             " does not begin and end with the same line breaks as the " + builtIn.language + " text";
  }
  return "message " + id + ": unknown problem";
}

}  // namespace NScrivolt::Languages
