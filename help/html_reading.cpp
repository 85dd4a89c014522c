#include "help/html_reading.h"

#include <libxml/HTMLparser.h>

#include <memory>
#include <new>

namespace veyra {
namespace {

/// What the parser's calls work on.
struct Reading {
  HtmlVisitor& Visitor;
  htmlParserCtxt* Parser = nullptr;
  int Depth = 0;
};

Reading& ReadingOf(void* context) {
  return *static_cast<Reading*>(context);
}

std::string_view TextOf(const xmlChar* text) {
  return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

void BeginTag(void* context, const xmlChar* name, const xmlChar** name_value_pairs) {
  Reading& reading = ReadingOf(context);
  HtmlAttributes attributes;
  for (const xmlChar** pair = name_value_pairs; pair != nullptr && *pair != nullptr; pair += 2) {
    attributes.emplace(TextOf(pair[0]), TextOf(pair[1]));
  }
  reading.Visitor.BeginTag(TextOf(name), attributes);
  if (++reading.Depth > kDeepestTag) {
    xmlStopParser(reading.Parser);
  }
}

void EndTag(void* context, const xmlChar* name) {
  Reading& reading = ReadingOf(context);
  --reading.Depth;
  reading.Visitor.EndTag(TextOf(name));
}

void TakeText(void* context, const xmlChar* text, int length) {
  ReadingOf(context).Visitor.TakeText(TextOf(text).substr(0, static_cast<std::size_t>(length)));
}

/// Scripts and style sheets would come as text if nobody took them.
void LeaveOut(void* /*context*/, const xmlChar* /*text*/, int /*length*/) {}

htmlSAXHandler Calls() {
  htmlSAXHandler calls{};
  calls.startElement = BeginTag;
  calls.endElement = EndTag;
  calls.characters = TakeText;
  calls.ignorableWhitespace = TakeText;
  calls.cdataBlock = LeaveOut;
  return calls;
}

}  // namespace

void ReadHtml(std::string_view html, HtmlVisitor& visitor) {
  const std::unique_ptr<htmlParserCtxt, decltype(&htmlFreeParserCtxt)> parser(htmlNewParserCtxt(),
                                                                              htmlFreeParserCtxt);
  if (!parser) {
    throw std::bad_alloc();
  }
  Reading reading{visitor, parser.get()};
  *parser->sax = Calls();
  parser->userData = &reading;
  htmlCtxtReadMemory(
      parser.get(), html.data(), static_cast<int>(html.size()), nullptr, "UTF-8",
      HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING);
}

}  // namespace veyra
