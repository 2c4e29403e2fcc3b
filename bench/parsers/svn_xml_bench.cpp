#include "parsers/svn_xml_parsers.h"
#include "samples.h"
#include "side_by_side.h"

#include <expat.h>

namespace kestor {
namespace {

void ignoreStart(void *, const XML_Char *, const XML_Char **) {}
void ignoreEnd(void *, const XML_Char *) {}
void ignoreText(void *, const XML_Char *, int) {}

/// What expat alone needs with handlers that do nothing.
void bareExpatPass(const QByteArray &xml) {
    const XML_Parser parser = XML_ParserCreate("UTF-8");
    XML_SetElementHandler(parser, ignoreStart, ignoreEnd);
    XML_SetCharacterDataHandler(parser, ignoreText);
    benchmark::DoNotOptimize(XML_Parse(parser, xml.constData(), static_cast<int>(xml.size()), 1));
    XML_ParserFree(parser);
}

template <typename Parser>
void compareWithExpat(benchmark::State &state, const QByteArray &xml) {
    runSideBySide(
        state, xml.size(), [&] { bareExpatPass(xml); },
        [&] { benchmark::DoNotOptimize(Parser::parse(QByteArrayView(xml))); });
}

void BM_status(benchmark::State &state) {
    compareWithExpat<StatusParser>(state, svnStatusXml(static_cast<int>(state.range(0))));
}

void BM_remoteStatus(benchmark::State &state) {
    compareWithExpat<RemoteStatusParser>(state, svnRemoteStatusXml(static_cast<int>(state.range(0))));
}

void BM_log(benchmark::State &state) {
    compareWithExpat<LogParser>(state, svnLogXml(static_cast<int>(state.range(0))));
}

void BM_info(benchmark::State &state) {
    compareWithExpat<InfoParser>(state, svnInfoXml());
}

BENCHMARK(BM_status)->Arg(20000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_remoteStatus)->Arg(20000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_log)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_info)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace kestor
