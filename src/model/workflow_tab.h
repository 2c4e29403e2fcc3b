#pragma once

#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>

namespace kestor {

/// The five tabs of a project.
enum class WorkflowTab : std::uint8_t { changes, incoming, history, archives, configuration };

inline constexpr std::array allWorkflowTabs{WorkflowTab::changes, WorkflowTab::incoming, WorkflowTab::history,
                                            WorkflowTab::archives, WorkflowTab::configuration};

/// The raw value, which is also the title: "Changes", "Incoming", ...
QStringView rawValue(WorkflowTab tab);
std::optional<WorkflowTab> workflowTabFromRawValue(QStringView text);

} // namespace kestor
