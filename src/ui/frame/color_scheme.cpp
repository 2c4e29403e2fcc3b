#include "ui/frame/color_scheme.h"

#include "ui/frame/session_bus.h"
#include "ui/look/edge_style.h"

#include <QApplication>
#include <QDBusConnection>
#include <QFutureWatcher>
#include <QStyle>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView appearanceGroup = u"org.freedesktop.appearance";
constexpr QStringView colorSchemeKey = u"color-scheme";
constexpr QStringView portalPath = u"/org/freedesktop/portal/desktop";
constexpr QStringView portalInterface = u"org.freedesktop.portal.Settings";

QDBusMessage readSettingCall() {
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, portalPath.toString(),
                                                       portalInterface.toString(), u"Read"_s);
    call << appearanceGroup.toString() << colorSchemeKey.toString();
    return call;
}

} // namespace

std::optional<ColorScheme> colorSchemeFromText(QStringView text) {
    if (text == u"light")
        return ColorScheme::light;
    if (text == u"dark")
        return ColorScheme::dark;
    return std::nullopt;
}

ColorScheme colorSchemeFromSetting(const QVariant &setting) {
    QVariant value = setting;
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == 1 ? ColorScheme::dark : ColorScheme::light;
}

FallbackColors::FallbackColors(QObject *parent)
    : QObject(parent), needed(QApplication::palette() == QApplication::style()->standardPalette()) {
    const std::optional<ColorScheme> chosen = colorSchemeFromText(qEnvironmentVariable("KESTORSVN_COLOR_SCHEME"));
    fixed = chosen.has_value();
    if (!needed && !fixed)
        return;
    QApplication::setStyle(new EdgeStyle);
    apply(chosen.value_or(ColorScheme::light));
}

void FallbackColors::followDesktop() {
    if (!needed || fixed)
        return;
    withSessionBus(this, [this](bool connected) {
        if (connected)
            subscribe();
    });
}

void FallbackColors::subscribe() {
    // Without a service name, so that the connection need not wait for the owner of that name.
    QDBusConnection::sessionBus().connect(QString(), portalPath.toString(), portalInterface.toString(),
                                          u"SettingChanged"_s, this,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto *watcher = new QFutureWatcher<std::optional<QVariantList>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        const std::optional<QVariantList> answer = watcher->result();
        if (answer && !answer->isEmpty())
            apply(colorSchemeFromSetting(answer->first()));
        watcher->deleteLater();
    });
    watcher->setFuture(callSessionBus(readSettingCall()));
}

void FallbackColors::settingChanged(const QString &group, const QString &key, const QDBusVariant &value) {
    if (group == appearanceGroup && key == colorSchemeKey)
        apply(colorSchemeFromSetting(QVariant::fromValue(value)));
}

void FallbackColors::apply(ColorScheme scheme) {
    if (applied == scheme)
        return;
    applied = scheme;
    QApplication::setPalette(fallbackPalette(scheme));
}

} // namespace kestor
