#pragma once

#include <QByteArray>

#include <benchmark/benchmark.h>
#include <expat.h>

namespace kestor {

/// What expat alone needs with handlers that do nothing.
inline void bareExpatPass(const QByteArray &xml) {
    const XML_Parser parser = XML_ParserCreate("UTF-8");
    XML_SetElementHandler(
        parser, [](void *, const XML_Char *, const XML_Char **) {}, [](void *, const XML_Char *) {});
    XML_SetCharacterDataHandler(parser, [](void *, const XML_Char *, int) {});
    benchmark::DoNotOptimize(XML_Parse(parser, xml.constData(), static_cast<int>(xml.size()), 1));
    XML_ParserFree(parser);
}

} // namespace kestor
