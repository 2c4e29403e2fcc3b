#pragma once

#include "analysis/text_range.h"

#include <QString>
#include <QStringView>

#include <cstddef>
#include <memory>
#include <optional>
#include <pcre2.h>
#include <utility>
#include <vector>

namespace kestor {

/// What matching one line may cost, in steps of some nanoseconds.
struct StepBudget {
    qsizetype left = 0;
};

/// The memory that matching takes, and its guard: shared by the expressions that one thread matches in turn.
class MatchSpace {
public:
    MatchSpace();
    Q_DISABLE_COPY_MOVE(MatchSpace)

private:
    friend class Expression;

    static int countStep(pcre2_callout_block *block, void *space);

    template <auto release>
    struct Release {
        void operator()(auto *object) const { release(object); }
    };
    std::unique_ptr<pcre2_jit_stack, Release<pcre2_jit_stack_free>> stack;
    std::unique_ptr<pcre2_match_context, Release<pcre2_match_context_free>> context;
    std::unique_ptr<pcre2_match_data, Release<pcre2_match_data_free>> data;
    qsizetype stepsLeft = 0;
    std::size_t position = 0;  ///< in the text, at the step before
    bool comparesText = false; ///< the expression has back references
    qsizetype stepCost = 1;
};

/// A regular expression over single lines. Characters have their Unicode properties, "." matches no line break of any
/// kind, "^" and "$" match at the ends of the text alone. It is the engine beneath QRegularExpression, which cannot
/// bound what a match costs: here every step is counted, so no pattern hangs, whatever it holds.
class Expression {
public:
    /// Nothing for patterns that are no expression.
    static std::optional<Expression> compiled(QStringView pattern);

    /// Replaces `found` by all matches in the text, empty ones left out, in their order; takes what that cost from the
    /// budget. No match at all once the budget is spent or the engine gives up. The text must be valid UTF-16.
    void findAll(QStringView text, MatchSpace &space, StepBudget &budget, std::vector<TextRange> &found) const;

private:
    struct Release {
        void operator()(pcre2_code *compiled) const { pcre2_code_free(compiled); }
    };
    using Code = std::unique_ptr<pcre2_code, Release>;

    Expression(Code compiledCode, bool refersBack, qsizetype costOfStep)
        : code(std::move(compiledCode)), hasBackReferences(refersBack), stepCost(costOfStep) {}

    Code code;
    bool hasBackReferences;
    qsizetype stepCost;
};

} // namespace kestor
