#include "bare_expat.h"
#include "parsers/svn_xml_parsers.h"
#include "samples.h"
#include "side_by_side.h"

namespace kestor {
namespace {

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

BENCHMARK(BM_status)->Arg(20000)->Arg(100000)->Arg(200000)->Arg(400000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_remoteStatus)->Arg(20000)->Arg(40000)->Arg(80000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_log)->Arg(5000)->Arg(10000)->Arg(20000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_info)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace kestor
