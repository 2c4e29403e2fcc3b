#include "analysis/language_tables.h"

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// One built-in language and its keys: file names or extensions.
struct LanguageRow {
    std::array<QLatin1StringView, 4> keys{};
    QLatin1StringView name{};
    QLatin1StringView colorHex{};
};

constexpr std::array defaultFileNameLanguages = std::to_array<LanguageRow>({
    {{"CMakeLists.txt"_L1}, "CMake"_L1, "#DA3434"_L1},
    {{"Dockerfile"_L1}, "Dockerfile"_L1, "#384d54"_L1},
    {{"Gemfile"_L1, "Podfile"_L1, "Rakefile"_L1}, "Ruby"_L1, "#701516"_L1},
    {{"Justfile"_L1, "justfile"_L1}, "Just"_L1, "#384d54"_L1},
    {{"Makefile"_L1}, "Makefile"_L1, "#427819"_L1},
    {{"Package.swift"_L1}, "Swift"_L1, "#F05138"_L1},
});

constexpr std::array defaultExtensionLanguages = std::to_array<LanguageRow>({
    {{"bash"_L1, "fish"_L1, "sh"_L1, "zsh"_L1}, "Shell"_L1, "#89e051"_L1},
    {{"c"_L1, "h"_L1}, "C"_L1, "#555555"_L1},
    {{"cc"_L1, "cpp"_L1, "cxx"_L1, "hpp"_L1}, "C++"_L1, "#f34b7d"_L1},
    {{"clj"_L1}, "Clojure"_L1, "#db5855"_L1},
    {{"cmake"_L1}, "CMake"_L1, "#DA3434"_L1},
    {{"coffee"_L1}, "CoffeeScript"_L1, "#244776"_L1},
    {{"cs"_L1}, "C#"_L1, "#178600"_L1},
    {{"css"_L1}, "CSS"_L1, "#563d7c"_L1},
    {{"dart"_L1}, "Dart"_L1, "#00B4AB"_L1},
    {{"ex"_L1, "exs"_L1}, "Elixir"_L1, "#6e4a7e"_L1},
    {{"fs"_L1, "fsi"_L1, "fsx"_L1}, "F#"_L1, "#b845fc"_L1},
    {{"go"_L1}, "Go"_L1, "#00ADD8"_L1},
    {{"gradle"_L1, "groovy"_L1}, "Groovy"_L1, "#4298b8"_L1},
    {{"graphql"_L1}, "GraphQL"_L1, "#e10098"_L1},
    {{"hs"_L1}, "Haskell"_L1, "#5e5086"_L1},
    {{"html"_L1}, "HTML"_L1, "#e34c26"_L1},
    {{"java"_L1}, "Java"_L1, "#b07219"_L1},
    {{"jl"_L1}, "Julia"_L1, "#a270ba"_L1},
    {{"js"_L1, "jsx"_L1}, "JavaScript"_L1, "#f1e05a"_L1},
    {{"json"_L1}, "JSON"_L1, "#292929"_L1},
    {{"kt"_L1, "kts"_L1}, "Kotlin"_L1, "#A97BFF"_L1},
    {{"less"_L1}, "Less"_L1, "#1d365d"_L1},
    {{"lua"_L1}, "Lua"_L1, "#000080"_L1},
    {{"m"_L1}, "Objective-C"_L1, "#438eff"_L1},
    {{"markdown"_L1, "md"_L1}, "Markdown"_L1, "#083fa1"_L1},
    {{"metal"_L1}, "Metal"_L1, "#8f14e9"_L1},
    {{"mm"_L1}, "Objective-C++"_L1, "#6866fb"_L1},
    {{"php"_L1}, "PHP"_L1, "#4F5D95"_L1},
    {{"pl"_L1, "pm"_L1}, "Perl"_L1, "#0298c3"_L1},
    {{"plist"_L1}, "Property List"_L1, "#0060ac"_L1},
    {{"ps1"_L1}, "PowerShell"_L1, "#012456"_L1},
    {{"py"_L1}, "Python"_L1, "#3572A5"_L1},
    {{"r"_L1}, "R"_L1, "#198CE7"_L1},
    {{"rb"_L1}, "Ruby"_L1, "#701516"_L1},
    {{"rs"_L1}, "Rust"_L1, "#dea584"_L1},
    {{"rst"_L1}, "reStructuredText"_L1, "#141414"_L1},
    {{"sass"_L1}, "Sass"_L1, "#a53b70"_L1},
    {{"scala"_L1}, "Scala"_L1, "#c22d40"_L1},
    {{"scss"_L1}, "SCSS"_L1, "#c6538c"_L1},
    {{"sql"_L1}, "SQL"_L1, "#e38c00"_L1},
    {{"svelte"_L1}, "Svelte"_L1, "#ff3e00"_L1},
    {{"svg"_L1}, "SVG"_L1, "#ff9900"_L1},
    {{"swift"_L1}, "Swift"_L1, "#F05138"_L1},
    {{"toml"_L1}, "TOML"_L1, "#9c4221"_L1},
    {{"ts"_L1, "tsx"_L1}, "TypeScript"_L1, "#3178c6"_L1},
    {{"vim"_L1}, "Vim Script"_L1, "#199f4b"_L1},
    {{"vue"_L1}, "Vue"_L1, "#41b883"_L1},
    {{"xml"_L1}, "XML"_L1, "#0060ac"_L1},
    {{"yaml"_L1, "yml"_L1}, "YAML"_L1, "#cb171e"_L1},
    {{"zig"_L1}, "Zig"_L1, "#ec915c"_L1},
});

constexpr std::array<std::string_view, 13> skippedFolderNames{".build", ".git",  ".svn",     "Build", "DerivedData",
                                                              "Pods",   "build", "coverage", "dist",  "node_modules",
                                                              "target", "tmp",   "vendor"};

template <typename Text>
bool hasKey(const LanguageRow &row, Text text) {
    return !text.isEmpty() && std::ranges::any_of(row.keys, [text](QLatin1StringView key) { return key == text; });
}

std::optional<LanguageDefinition> languageIn(std::span<const LanguageRow> rows, QStringView key) {
    const auto row = std::ranges::find_if(rows, [key](const LanguageRow &each) { return hasKey(each, key); });
    return row == rows.end() ? std::nullopt : std::optional(LanguageDefinition{row->name, row->colorHex});
}

} // namespace

std::optional<LanguageDefinition> defaultFileNameLanguage(QStringView fileName) {
    return languageIn(defaultFileNameLanguages, fileName);
}

bool isDefaultFileName(std::string_view fileName) {
    const QLatin1StringView name(fileName.data(), static_cast<qsizetype>(fileName.size()));
    return std::ranges::any_of(defaultFileNameLanguages, [name](const LanguageRow &row) { return hasKey(row, name); });
}

std::optional<LanguageDefinition> defaultExtensionLanguage(QStringView extension) {
    return languageIn(defaultExtensionLanguages, extension);
}

bool isSkippedFolderName(std::string_view name) {
    return std::ranges::find(skippedFolderNames, name) != skippedFolderNames.end();
}

QStringView fileNameOf(QStringView path) {
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

QString fileExtensionOf(QStringView path) {
    const QStringView name = fileNameOf(path);
    const QStringView dotted(dottedExtension(std::u16string_view(name.utf16(), static_cast<std::size_t>(name.size()))));
    return dotted.mid(1).toString().toLower();
}

} // namespace kestor
