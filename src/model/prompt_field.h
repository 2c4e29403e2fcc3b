#pragma once

#include <QString>

namespace kestor {

/// One text field of a prompt.
struct PromptField {
    QString key{};   ///< under which the entered text is returned
    QString label{}; ///< shown before the field
    QString value{}; ///< initial text

    friend bool operator==(const PromptField &, const PromptField &) = default;
};

} // namespace kestor
