#include "engine/functions/codec_functions.h"
#include "engine/syntax/error_report.h"

#include <memory>
#include <utility>

#include "engine/codecs/codec_formats.h"
#include "engine/functions/function_factory.h"
#include "engine/process_context.h"

namespace NScrivolt {

namespace {

// A value kept one byte a unit has no surrogates, so the pieces can be cut
// anywhere; a wide one comes as one piece.
void AppendEncodedInPieces(const CCodecFormat& format, const CParamValue& value, WString& scratch,
                           WString& output) {
  for (std::size_t from = 0; from < value.Size();) {
    const WStringView piece = value.PieceIn(from, scratch);
    format.appendEncodedText(piece, output);
    from += piece.size();
  }
}

// The format a keyword written as a quoted text names: the same on every
// evaluation, so it is looked up once and kept in the part. A keyword that
// names no format is looked up again each time, so that each evaluation
// reports it.
class CConstantFormat : public CPartCache {
 public:
  explicit CConstantFormat(const CCodecFormat& found) : format(found) {}
  const CCodecFormat& format;
};

// The format the keyword argument `part` names, or null with the keyword in
// `keyword` when it names none.
CErrorText EvaluateFormat(const CFunction& function, const CParsePart* part, WStringView displayName,
                          CProcessContext& context, WString& keyword, const CCodecFormat*& format) {
  format = nullptr;
  const bool constant = part != nullptr && part->Kind() == PartKind::ArgText;
  if (constant && part->Cache() != nullptr) {
    format = &static_cast<const CConstantFormat*>(part->Cache())->format;
    return CErrorText();
  }
  CErrorText errorText = EvaluateText(function, part, displayName, context, WithoutValue::IsError, keyword);
  if (!errorText.empty()) return errorText;
  format = FindCodecFormat(keyword);
  if (constant && format != nullptr) part->SetCache(std::make_unique<CConstantFormat>(*format));
  return errorText;
}

}  // namespace

// --- decode --------------------------------------------------------------------

const CArgumentTable& CFunctionDecode::Arguments() const {
  static const CArgumentTable table{
      Single(u"what", &CFunctionDecode::what_),
      Single(u"from", &CFunctionDecode::from_),
      Single(u"to", &CFunctionDecode::to_),
  };
  return table;
}

CErrorText CFunctionDecode::Execute(CProcessContext& context, WString& output) {
  WString keyword, what;
  const CCodecFormat* format = nullptr;
  CParamQualifier target;
  CErrorText errorText = EvaluateFormat(*this, from_, u"From", context, keyword, format);
  if (errorText.empty()) errorText = EvaluateText(*this, what_, u"What", context, WithoutValue::IsError, what);
  if (errorText.empty()) errorText = EvaluateQualifier(*this, to_, u"To", context, WhenAbsent::IsEmpty, target);
  if (!errorText.empty()) return errorText;
  // The target is created and emptied whatever happens next.
  if (to_ != nullptr) context.Root().FindParam(target, true)->Clear();

  if (format == nullptr) return UnknownOptionError(*from_, keyword);
  if (!format->IsStructured()) {
    WString text = format->decodeText(what);
    if (to_ != nullptr) {
      context.Root().FindParam(target, true)->SetValue(std::move(text));
    } else {
      output += text;
    }
    return errorText;
  }
  if (to_ == nullptr) return ArgumentMissingError(CallPart(), u"To");
  CDecodedText decoded(std::move(what));
  return format->decodeTree(decoded, *context.Root().FindParam(target, true));
}

// --- encode --------------------------------------------------------------------

const CArgumentTable& CFunctionEncode::Arguments() const {
  static const CArgumentTable table{
      Single(u"what", &CFunctionEncode::what_),
      Single(u"for", &CFunctionEncode::for_),
  };
  return table;
}

CErrorText CFunctionEncode::Execute(CProcessContext& context, WString& output) {
  WString keyword;
  const CCodecFormat* format = nullptr;
  CParam storage;
  const CParam* what = nullptr;
  CErrorText errorText = EvaluateFormat(*this, for_, u"For", context, keyword, format);
  if (errorText.empty()) {
    errorText = EvaluateParamInPlace(*this, what_, u"What", context, WithoutValue::IsError, storage, what);
  }
  if (!errorText.empty()) return errorText;

  if (format == nullptr) return UnknownOptionError(*for_, keyword);
  const CParamValue& value = what->Value();
  const unsigned char* narrow = value.NarrowData();
  if (narrow != nullptr && format->appendEncodedNarrow != nullptr) {
    format->appendEncodedNarrow(narrow, value.Size(), output);
  } else if (format->appendEncodedText != nullptr) {
    AppendEncodedInPieces(*format, value, scratch_, output);
  } else if (!format->IsStructured()) {
    output += format->encodeText(what->Value().ViewIn(scratch_));
  } else {
    errorText = format->encodeTree(*what, output);
  }
  return errorText;
}

CBuiltInFamily CodecFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"decode", Make<CFunctionDecode>},
      {u"encode", Make<CFunctionEncode>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
