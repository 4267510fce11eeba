#include "simulator/tool/manual.h"

#include <sstream>

namespace tool {
namespace {

// Text in which man finds no commands of its own, and which can be copied into a shell.
std::string escaped(const std::string& text) {
    std::string result;
    bool lineBegins = true;
    for (const char letter : text) {
        if (lineBegins && (letter == '.' || letter == '\'')) result += "\\&";
        if (letter == '\\') {
            result += "\\e";
        } else {
            result += letter == '-' ? "\\-" : std::string(1, letter);
        }
        lineBegins = letter == '\n';
    }
    return result;
}

std::string bold(const std::string& text) { return "\\fB" + escaped(text) + "\\fR"; }

std::string italic(const std::string& text) { return "\\fI" + escaped(text) + "\\fR"; }

// Lines as they are, parted as they were by empty ones.
std::string unfilled(const std::string& text) {
    std::string result = ".nf\n";
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) result += (line.empty() ? ".sp" : escaped(line)) + "\n";
    return result + ".fi\n";
}

// "TEXT", or without the choices that follow it "on|off".
std::string valueOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const std::size_t choices = type.find(":{");
    if (choices == std::string::npos) return italic(type.substr(0, type.find(':')));
    std::string words = type.substr(choices + 2, type.find('}') - choices - 2);
    for (std::size_t comma = 0; (comma = words.find(',', comma)) != std::string::npos;) words[comma] = '|';
    return italic(words);
}

std::string nameOf(const CLI::Option& option) {
    if (option.get_positional()) return italic(option.get_name(true));
    std::string names;
    for (const std::string& name : option.get_snames()) names += (names.empty() ? "" : ", ") + bold("-" + name);
    for (const std::string& name : option.get_lnames()) names += (names.empty() ? "" : ", ") + bold("--" + name);
    return option.get_items_expected_max() > 0 ? names + " " + valueOf(option) : names;
}

std::string optionsOf(const CLI::App& app) {
    std::string result;
    for (const CLI::Option* option : app.get_options()) {
        result += ".TP\n" + nameOf(*option) + "\n" + escaped(option->get_description()) + "\n";
    }
    return result;
}

std::string synopsisOf(const std::string& program, const CLI::App& verb) {
    std::string line = bold(program + " " + verb.get_name());
    for (const CLI::Option* option : verb.get_options()) {
        if (!option->get_positional()) continue;
        const std::string name = italic(option->get_name(true));
        line += option->get_required() ? " " + name : " [" + name + "]";
    }
    return line + " [" + italic("OPTION") + " ...]\n";
}

}  // namespace

std::string manual(const CLI::App& app, const std::string& version) {
    const std::string& program = app.get_name();
    const auto verbs = app.get_subcommands([](const CLI::App*) { return true; });
    std::string page = ".TH PHONESIM 1 \"\" \"" + escaped(version) + "\" \"User Commands\"\n";
    page += ".SH NAME\n" + program + " \\- stand\\-in phones\n.SH SYNOPSIS\n.nf\n";
    for (const CLI::App* verb : verbs) page += synopsisOf(program, *verb);
    page += ".fi\n.SH DESCRIPTION\n" + escaped(app.get_description()) + "\n.SH OPTIONS\n" + optionsOf(app);
    for (const CLI::App* verb : verbs) {
        page += ".SH \"" + program + " " + verb->get_name() + "\"\n" + escaped(verb->get_description()) + ".\n" +
                optionsOf(*verb) + ".PP\n" + unfilled(verb->get_footer());
    }
    return page + ".SH NOTES\n" + unfilled(app.get_footer());
}

}  // namespace tool
