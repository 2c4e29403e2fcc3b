#include "model/workflow_tab.h"

#include "model/text_table.h"

namespace kestor {

namespace {

constexpr std::array<QStringView, 5> titles{u"Changes", u"Incoming", u"History", u"Archives", u"Configuration"};
static_assert(titles.size() == allWorkflowTabs.size());

} // namespace

QStringView rawValue(WorkflowTab tab) {
    return titles.at(static_cast<std::size_t>(tab));
}

std::optional<WorkflowTab> workflowTabFromRawValue(QStringView text) {
    return enumFromText<WorkflowTab>(titles, text);
}

} // namespace kestor
