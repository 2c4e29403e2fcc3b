#include "ui/frame/window_state.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>

#include <algorithm>
#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView stateKey = u"KestorSVN.window";
constexpr int leastVisible = 64;

constexpr std::pair<DiffPreviewKind, QLatin1StringView> kindNames[] = {
    {DiffPreviewKind::image, "image"_L1},
    {DiffPreviewKind::font, "font"_L1},
    {DiffPreviewKind::audio, "audio"_L1},
};
constexpr std::pair<DetailForm, QLatin1StringView> formNames[] = {
    {DetailForm::preview, "preview"_L1},
    {DetailForm::text, "text"_L1},
};

QJsonObject toJson(const FormChoices &choices) {
    QJsonObject object;
    for (const auto &[kind, kindName] : kindNames) {
        for (const auto &[form, formName] : formNames) {
            if (choices.contains(kind) && choices.value(kind) == form)
                object.insert(kindName, formName);
        }
    }
    return object;
}

FormChoices choicesFrom(const QJsonObject &object) {
    FormChoices choices;
    for (const auto &[kind, kindName] : kindNames) {
        for (const auto &[form, formName] : formNames) {
            if (object.value(kindName).toString() == formName)
                choices.insert(kind, form);
        }
    }
    return choices;
}

QJsonArray toJson(const QRect &rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

QRect rectFrom(const QJsonArray &values) {
    if (values.size() != 4)
        return {};
    return {values.at(0).toInt(), values.at(1).toInt(), values.at(2).toInt(), values.at(3).toInt()};
}

int boundedInt(const QJsonValue &value, int least, int greatest, int otherwise) {
    return value.isDouble() ? std::clamp(value.toInt(otherwise), least, greatest) : otherwise;
}

} // namespace

WindowState loadWindowState(const QSettings &settings) {
    const QJsonObject object = QJsonDocument::fromJson(settings.value(stateKey.toString()).toByteArray()).object();
    WindowState state;
    state.geometry = QByteArray::fromBase64(object.value("geometry"_L1).toString().toLatin1());
    state.frame = rectFrom(object.value("frame"_L1).toArray());
    state.sidebarWidth = boundedInt(object.value("sidebarWidth"_L1), 160, 360, state.sidebarWidth);
    state.sidebarHidden = object.value("sidebarHidden"_L1).toBool();
    state.listWidth = boundedInt(object.value("listWidth"_L1), 280, 10000, state.listWidth);
    state.archivesWidth = boundedInt(object.value("archivesWidth"_L1), 280, 10000, state.archivesWidth);
    state.messageHeight = boundedInt(object.value("messageHeight"_L1), 0, 10000, state.messageHeight);
    state.incomingHeight = boundedInt(object.value("incomingHeight"_L1), 0, 10000, 0);
    state.history.revisionsHeight = boundedInt(object.value("revisionsHeight"_L1), 0, 10000, 0);
    state.history.listsWidth = boundedInt(object.value("historyListsWidth"_L1), 0, 10000, 0);
    state.history.filesWidth = boundedInt(object.value("historyFilesWidth"_L1), 0, 10000, 0);
    state.textSize = boundedInt(object.value("textSize"_L1), DiffPane::smallestTextSizeDelta,
                                DiffPane::largestTextSizeDelta, state.textSize);
    state.forms = choicesFrom(object.value("forms"_L1).toObject());
    return state;
}

void saveWindowState(QSettings &settings, const WindowState &state) {
    const QJsonObject object{
        {u"geometry"_s, QString::fromLatin1(state.geometry.toBase64())},
        {u"frame"_s, toJson(state.frame)},
        {u"sidebarWidth"_s, state.sidebarWidth},
        {u"sidebarHidden"_s, state.sidebarHidden},
        {u"listWidth"_s, state.listWidth},
        {u"archivesWidth"_s, state.archivesWidth},
        {u"messageHeight"_s, state.messageHeight},
        {u"incomingHeight"_s, state.incomingHeight},
        {u"revisionsHeight"_s, state.history.revisionsHeight},
        {u"historyListsWidth"_s, state.history.listsWidth},
        {u"historyFilesWidth"_s, state.history.filesWidth},
        {u"textSize"_s, state.textSize},
        {u"forms"_s, toJson(state.forms)},
    };
    settings.setValue(stateKey.toString(), QJsonDocument(object).toJson(QJsonDocument::Compact));
}

std::optional<QRect> recoveredFrame(const QRect &frame, const QList<QRect> &screens) {
    if (!frame.isValid() || screens.isEmpty())
        return std::nullopt;
    const auto showsEnough = [&frame](const QRect &screen) {
        const QRect visible = screen & frame;
        return visible.width() >= leastVisible && visible.height() >= leastVisible;
    };
    if (std::ranges::any_of(screens, showsEnough))
        return std::nullopt;
    QRect centered(QPoint(), frame.size().boundedTo(screens.first().size()));
    centered.moveCenter(screens.first().center());
    return centered;
}

} // namespace kestor
