#include "analysis/syntax_highlighter.h"

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

struct Rule {
    QStringView pattern{};
    QLatin1StringView colorHex{};
    int priority = 0;
};

constexpr QLatin1StringView comment = "#6A737D"_L1;
constexpr QLatin1StringView string = "#0A7F42"_L1;
constexpr QLatin1StringView keyword = "#B42D8D"_L1;
constexpr QLatin1StringView number = "#953800"_L1;
constexpr QLatin1StringView name = "#0550AE"_L1;
constexpr QLatin1StringView tag = "#116329"_L1;
constexpr QLatin1StringView link = "#0969DA"_L1;

constexpr QStringView quoted = uR"re("(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])*')re";
constexpr QStringView blockComment = uR"re(/\*.*?\*/)re";
constexpr QStringView scientific = uR"re(\b[0-9]+(?:\.[0-9]+)?(?:[eE][+-]?[0-9]+)?\b)re";
constexpr QStringView hashLine = uR"re(#.*$)re";
constexpr QStringView dashLine = uR"re(--.*$)re";
constexpr QStringView decimal = uR"re(\b[0-9]+(?:\.[0-9]+)?\b)re";

constexpr std::array cLikeRules{
    Rule{quoted, string, 90},
    Rule{uR"re(//.*$)re", comment, 100},
    Rule{blockComment, comment, 100},
    Rule{uR"re(\b(?:class|struct|enum|protocol|extension|func|function|def|return|if|else|for|)re"
         uR"re(while|switch|case|default|break|continue|try|catch|throw|throws|async|await|import|)re"
         uR"re(package|namespace|using|public|private|protected|internal|static|final|const|let|)re"
         uR"re(var|new|delete|operator|template|typename|where|guard|defer|do|in|as|is|nil|null|)re"
         uR"re(true|false|this|self|super|mut|impl|trait|match|use|mod|pub|crate|extern|typealias|)re"
         uR"re(type|interface|implements|extends|yield|await)\b)re",
         keyword, 40},
    Rule{uR"re(\b(?:Int|String|Bool|Double|Float|Character|Void|Any|Self|URL|Data|Date|Result|)re"
         uR"re(Array|Dictionary|Set|Optional|Error|UIView|NSView|Color|Text|View|Object|Number|)re"
         uR"re(Boolean|Map|List|Vec|Option|Some|None|usize|isize|i32|i64|u32|u64|char|void|int|)re"
         uR"re(long|short|unsigned|signed|float|double|boolean|byte)\b)re",
         name, 35},
    Rule{scientific, number, 30},
};

constexpr std::array hashCommentRules{
    Rule{quoted, string, 90},
    Rule{hashLine, comment, 100},
    Rule{uR"re(\b(?:and|as|assert|begin|break|case|class|def|do|elif|else|elsif|end|ensure|except|)re"
         uR"re(finally|for|from|func|if|import|in|is|lambda|module|next|not|or|pass|raise|redo|)re"
         uR"re(rescue|retry|return|self|then|try|unless|until|when|while|with|yield|true|false|nil|)re"
         uR"re(none|None|True|False)\b)re",
         keyword, 40},
    Rule{scientific, number, 30},
};

constexpr std::array markupRules{
    Rule{uR"re(<!--.*?-->)re", comment, 100},
    Rule{uR"re("[^"]*"|'[^']*')re", string, 90},
    Rule{uR"re(</?[A-Za-z][A-Za-z0-9:-]*)re", tag, 55},
    Rule{uR"re(\b[A-Za-z_:][-A-Za-z0-9_:.]*(?=\=))re", number, 45},
    Rule{uR"re(</?>)re", comment, 30},
};

constexpr std::array styleSheetRules{
    Rule{blockComment, comment, 100},
    Rule{quoted, string, 90},
    Rule{uR"re(#[A-Fa-f0-9]{3,8}\b)re", number, 55},
    Rule{uR"re(\b[-A-Za-z]+(?=\s*:))re", name, 45},
    Rule{uR"re(\b(?:important|solid|none|block|inline|flex|grid|relative|absolute|fixed|sticky|)re"
         uR"re(auto|inherit|initial|unset)\b)re",
         keyword, 35},
    Rule{uR"re(\b[0-9]+(?:\.[0-9]+)?(?:px|em|rem|vh|vw|%|s|ms|deg)?\b)re", number, 30},
};

constexpr std::array dataRules{
    Rule{uR"re("(?:\\.|[^"\\])*"(?=\s*:))re", name, 70},
    Rule{quoted, string, 60},
    Rule{hashLine, comment, 80},
    Rule{uR"re(\b(?:true|false|null|yes|no|on|off)\b)re", keyword, 50},
    Rule{scientific, number, 45},
};

constexpr std::array markdownRules{
    Rule{uR"re(^#{1,6}\s.*$)re", name, 80},        Rule{uR"re(`[^`]+`)re", number, 70},
    Rule{uR"re(\[[^\]]+\]\([^)]+\))re", link, 60}, Rule{uR"re(\*\*[^*]+\*\*|__[^_]+__)re", keyword, 50},
    Rule{uR"re(^>\s.*$)re", comment, 40},
};

constexpr std::array sqlRules{
    Rule{uR"re('(?:''|[^'])*')re", string, 90},
    Rule{dashLine, comment, 100},
    Rule{uR"re(\b(?:SELECT|FROM|WHERE|JOIN|LEFT|RIGHT|INNER|OUTER|FULL|ON|GROUP|ORDER|BY|HAVING|)re"
         uR"re(INSERT|INTO|UPDATE|DELETE|CREATE|ALTER|DROP|TABLE|VIEW|INDEX|VALUES|SET|AS|AND|OR|)re"
         uR"re(NOT|NULL|TRUE|FALSE|CASE|WHEN|THEN|ELSE|END|LIMIT|OFFSET|DISTINCT|UNION|ALL)\b)re",
         keyword, 40},
    Rule{decimal, number, 30},
};

constexpr std::array luaRules{
    Rule{quoted, string, 90},
    Rule{dashLine, comment, 100},
    Rule{uR"re(\b(?:and|break|do|else|elseif|end|false|for|function|goto|if|in|local|nil|not|or|)re"
         uR"re(repeat|return|then|true|until|while)\b)re",
         keyword, 40},
    Rule{decimal, number, 30},
};

constexpr std::array shellRules{
    Rule{uR"re("(?:\\.|[^"\\])*"|'[^']*')re", string, 90},
    Rule{hashLine, comment, 100},
    Rule{uR"re(\$\{?[A-Za-z_][A-Za-z0-9_]*\}?)re", number, 45},
    Rule{uR"re(\b(?:if|then|else|elif|fi|for|while|until|do|done|case|esac|function|return|export|)re"
         uR"re(local|readonly|in|select|time|coproc|trap|shift|source|alias)\b)re",
         keyword, 40},
};

constexpr std::array buildFileRules{
    Rule{hashLine, comment, 100},
    Rule{quoted, string, 90},
    Rule{uR"re(^[A-Za-z_][A-Za-z0-9_.-]*(?=\s*[:=]))re", name, 50},
    Rule{uR"re(\$\([A-Za-z_][A-Za-z0-9_]*\)|\$\{[A-Za-z_][A-Za-z0-9_]*\})re", number, 45},
    Rule{uR"re(\b(?:FROM|RUN|COPY|ADD|CMD|ENTRYPOINT|ENV|ARG|WORKDIR|EXPOSE|VOLUME|USER|LABEL|)re"
         uR"re(include|if|else|endif|function|macro|project|target_link_libraries|add_executable|)re"
         uR"re(add_library|set)\b)re",
         keyword, 40},
};

constexpr std::array clojureRules{
    Rule{uR"re("(?:\\.|[^"\\])*")re", string, 90},
    Rule{uR"re(;.*$)re", comment, 100},
    Rule{uR"re(\b(?:def|defn|let|if|do|fn|loop|recur|case|cond|when|require|import|ns|true|false|)re"
         uR"re(nil)\b)re",
         keyword, 40},
    Rule{uR"re(:[A-Za-z0-9_.!?\-+/=<>]+)re", number, 35},
    Rule{decimal, number, 30},
};

struct Language {
    QLatin1StringView name{}; ///< compared with lower-cased names
    std::span<const Rule> rules{};
};

constexpr std::array languages = std::to_array<Language>({
    {"c"_L1, cLikeRules},
    {"c++"_L1, cLikeRules},
    {"c#"_L1, cLikeRules},
    {"dart"_L1, cLikeRules},
    {"f#"_L1, cLikeRules},
    {"go"_L1, cLikeRules},
    {"groovy"_L1, cLikeRules},
    {"java"_L1, cLikeRules},
    {"javascript"_L1, cLikeRules},
    {"julia"_L1, cLikeRules},
    {"kotlin"_L1, cLikeRules},
    {"metal"_L1, cLikeRules},
    {"objective-c"_L1, cLikeRules},
    {"objective-c++"_L1, cLikeRules},
    {"php"_L1, cLikeRules},
    {"rust"_L1, cLikeRules},
    {"scala"_L1, cLikeRules},
    {"swift"_L1, cLikeRules},
    {"typescript"_L1, cLikeRules},
    {"zig"_L1, cLikeRules},
    // The capital letter is part of what is defined: no lower-cased name equals it, so CoffeeScript stays uncolored.
    {"coffeeScript"_L1, hashCommentRules},
    {"elixir"_L1, hashCommentRules},
    {"haskell"_L1, hashCommentRules},
    {"perl"_L1, hashCommentRules},
    {"python"_L1, hashCommentRules},
    {"ruby"_L1, hashCommentRules},
    {"vim script"_L1, hashCommentRules},
    {"html"_L1, markupRules},
    {"svg"_L1, markupRules},
    {"xml"_L1, markupRules},
    {"vue"_L1, markupRules},
    {"svelte"_L1, markupRules},
    {"css"_L1, styleSheetRules},
    {"less"_L1, styleSheetRules},
    {"sass"_L1, styleSheetRules},
    {"scss"_L1, styleSheetRules},
    {"json"_L1, dataRules},
    {"property list"_L1, dataRules},
    {"toml"_L1, dataRules},
    {"yaml"_L1, dataRules},
    {"markdown"_L1, markdownRules},
    {"restructuredtext"_L1, markdownRules},
    {"sql"_L1, sqlRules},
    {"lua"_L1, luaRules},
    {"shell"_L1, shellRules},
    {"powershell"_L1, shellRules},
    {"makefile"_L1, buildFileRules},
    {"cmake"_L1, buildFileRules},
    {"dockerfile"_L1, buildFileRules},
    {"clojure"_L1, clojureRules},
});

SyntaxDefinition definitionOf(std::span<const Rule> rules) {
    SyntaxDefinition definition;
    for (const Rule &rule : rules)
        definition.rules.append({rule.pattern.toString(), rule.colorHex, rule.priority});
    return definition;
}

} // namespace

std::optional<SyntaxDefinition> SyntaxHighlighter::defaultDefinition(QStringView named) {
    const QString lowered = named.toString().toLower();
    const auto language = std::ranges::find(languages, lowered, &Language::name);
    return language == languages.end() ? std::nullopt : std::optional(definitionOf(language->rules));
}

} // namespace kestor
