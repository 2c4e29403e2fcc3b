#include "analysis/expression.h"

#include <algorithm>
#include <utility>

namespace kestor {

namespace {

constexpr std::size_t smallestStack = 32 * 1024;
constexpr std::size_t largestStack = 1024 * 1024;
constexpr std::uint32_t largestHeap = 4096; ///< in KiB; what the engine uses where it compiles no machine code

/// Characters that the engine walks over in the time of a step.
constexpr std::size_t charactersPerStep = 16;
/// How many times as long a step takes without machine code.
constexpr qsizetype interpretedStepCost = 4;
/// What a search costs that begins nowhere, in steps, and how many characters it passes in the time of one.
constexpr std::size_t stepsPerStart = 20;
constexpr std::size_t charactersPerStartStep = 512;

/// Whether the pattern looks at the scripts of letters, whose cost cannot be counted.
bool comparesScripts(QStringView pattern) {
    return pattern.contains(u"(*sr:") || pattern.contains(u"(*asr:") || pattern.contains(u"script_run:");
}

std::size_t distance(std::size_t from, std::size_t to) {
    return from < to ? to - from : from - to;
}

PCRE2_SPTR unitsOf(QStringView text) {
    return reinterpret_cast<PCRE2_SPTR>(text.utf16());
}

/// Where to go on behind an empty match: not within a character.
std::size_t behindCharacter(QStringView text, std::size_t position) {
    const auto index = static_cast<qsizetype>(position);
    const bool isPair = index + 1 < text.size() && text[index].isHighSurrogate();
    return position + (isPair ? 2 : 1);
}

} // namespace

MatchSpace::MatchSpace()
    : stack(pcre2_jit_stack_create(smallestStack, largestStack, nullptr)), context(pcre2_match_context_create(nullptr)),
      data(pcre2_match_data_create(1, nullptr)) {
    pcre2_jit_stack_assign(context.get(), nullptr, stack.get());
    pcre2_set_heap_limit(context.get(), largestHeap);
    pcre2_set_callout(context.get(), countStep, this);
}

int MatchSpace::countStep(pcre2_callout_block *block, void *space) {
    auto &self = *static_cast<MatchSpace *>(space);
    // A back reference may compare the whole rest of the text within one step.
    const std::size_t walked = self.comparesText ? block->subject_length - block->current_position
                                                 : distance(self.position, block->current_position);
    self.position = block->current_position;
    self.stepsLeft -= self.stepCost * static_cast<qsizetype>(1 + walked / charactersPerStep);
    return self.stepsLeft < 0 ? PCRE2_ERROR_CALLOUT : 0;
}

std::optional<Expression> Expression::compiled(QStringView pattern) {
    struct ContextRelease {
        void operator()(pcre2_compile_context *context) const { pcre2_compile_context_free(context); }
    };
    const std::unique_ptr<pcre2_compile_context, ContextRelease> context(pcre2_compile_context_create(nullptr));
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANY);
    if (comparesScripts(pattern))
        return std::nullopt;
    int error = 0;
    PCRE2_SIZE errorOffset = 0;
    constexpr std::uint32_t options = PCRE2_UTF | PCRE2_UCP | PCRE2_AUTO_CALLOUT | PCRE2_NEVER_BACKSLASH_C;
    Code code(pcre2_compile(unitsOf(pattern), static_cast<PCRE2_SIZE>(pattern.size()), options, &error, &errorOffset,
                            context.get()));
    if (!code)
        return std::nullopt;
    // Where this is not possible, matching interprets.
    pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
    std::uint32_t backReferences = 0;
    pcre2_pattern_info(code.get(), PCRE2_INFO_BACKREFMAX, &backReferences);
    std::size_t machineCode = 0;
    pcre2_pattern_info(code.get(), PCRE2_INFO_JITSIZE, &machineCode);
    return Expression(std::move(code), backReferences > 0, machineCode > 0 ? 1 : interpretedStepCost);
}

void Expression::findAll(QStringView text, MatchSpace &space, StepBudget &budget, std::vector<TextRange> &found) const {
    found.clear();
    space.stepsLeft = budget.left;
    space.position = 0;
    space.comparesText = hasBackReferences;
    space.stepCost = stepCost;
    const auto end = static_cast<std::size_t>(text.size());
    const PCRE2_SIZE *const range = pcre2_get_ovector_pointer(space.data.get());
    int result = 0;
    for (std::size_t from = 0; from <= end;) {
        result = pcre2_match(code.get(), unitsOf(text), end, from, PCRE2_NO_UTF_CHECK, space.data.get(),
                             space.context.get());
        // Looking for a place to begin at is no step.
        const std::size_t passed = (result < 0 ? end : range[0]) - from;
        space.stepsLeft -= static_cast<qsizetype>(stepsPerStart + passed / charactersPerStartStep);
        if (space.stepsLeft < 0)
            result = PCRE2_ERROR_CALLOUT;
        if (result < 0)
            break;
        if (range[0] < range[1])
            found.push_back({static_cast<qsizetype>(range[0]), static_cast<qsizetype>(range[1] - range[0])});
        from = range[0] < range[1] ? range[1] : behindCharacter(text, range[1]);
    }
    budget.left = std::max<qsizetype>(space.stepsLeft, 0);
    if (result < 0 && result != PCRE2_ERROR_NOMATCH)
        found.clear();
}

} // namespace kestor
