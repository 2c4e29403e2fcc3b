#include "ui/frame/waiting_start.h"

#include "ui/frame/message_dialog.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace kestor {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString waitingText(const QStringList &paths) {
    const QString unanswered = u"KestorSVN is running already, here or on another computer with the same home folder, "
                               "but its window does not answer. Keep this message open "_s;
    if (paths.isEmpty())
        return unanswered + u"to get a window as soon as that one answers or closes."_s;
    return unanswered + u"to add these folders as soon as it answers or closes:\n"_s + paths.join(u'\n');
}

} // namespace

InstanceStart::Outcome waitForAnswer(InstanceStart &start) {
    InstanceStart::Outcome outcome = InstanceStart::Outcome::unanswered;
    MessageDialog dialog(MessageDialog::Purpose::alert, u"The Window Does Not Answer"_s,
                         waitingText(start.request().paths), nullptr);
    QEventLoop loop;
    QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
    QTimer again;
    QObject::connect(&again, &QTimer::timeout, &loop, [&] {
        outcome = start.tryFor(0ms);
        if (outcome != InstanceStart::Outcome::unanswered)
            loop.quit();
    });
    again.start(200ms);
    dialog.open();
    loop.exec();
    return outcome;
}

} // namespace kestor
