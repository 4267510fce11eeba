#include "simulator/maker/calls/call_xml.h"

#include <glib.h>

#include <map>
#include <memory>
#include <optional>
#include <regex>

#include "simulator/maker/calls/call_table.h"
#include "simulator/maker/calls/call_values.h"

namespace maker {
namespace {

struct Reading {
    const std::string& file;
    Findings& findings;
    std::vector<WrittenCall> calls;
    bool found = false;   // <calls>
    std::string problem;  // why the reading ended; empty: it goes on
};

using Attributes = std::map<std::string, std::string>;

std::string valueOf(const Attributes& attributes, const char* name) {
    const auto found = attributes.find(name);
    // It writes "null" for what it does not know.
    return found == attributes.end() || found->second == "null" ? std::string() : found->second;
}

// A caller who hides the number, or whose number the network does not give.
constexpr const char* kKnownNumber = "1";

Result<WrittenCall> callOf(const Attributes& attributes) {
    WrittenCall written;
    const std::string date = valueOf(attributes, "date");
    const std::optional<double> moment = readMoment(date, DayOrder::unknown);
    if (!moment) return failure("the call's date \"" + date + "\" is no number of milliseconds");
    const std::string type = valueOf(attributes, "type");
    const std::optional<CallKind> kind = readKind(type);
    if (!kind) return failure("the call's type \"" + type + "\" is not known");
    const std::string lasted = valueOf(attributes, "duration");
    const std::optional<int> duration = lasted.empty() ? 0 : readDuration(lasted);
    if (!duration) return failure("the call's duration \"" + lasted + "\" is no number of seconds");
    const std::string presentation = valueOf(attributes, "presentation");
    if (presentation.empty() || presentation == kKnownNumber) written.call.address = valueOf(attributes, "number");
    written.call.name = valueOf(attributes, "contact_name");
    if (written.call.name == "(Unknown)") written.call.name.clear();
    written.call.date = *moment;
    written.call.kind = *kind;
    written.call.duration = *duration;
    return written;
}

void takeCall(Reading& reading, const Attributes& attributes, int line) {
    Result<WrittenCall> call = callOf(attributes);
    if (!call) {
        reading.problem = placeOf(reading.file, line) + ": " + call.error().message;
        return;
    }
    fitDuration(call->call, reading.file, line, reading.findings);
    reading.calls.push_back(std::move(*call));
}

void startElement(GMarkupParseContext* context, const gchar* element, const gchar** names, const gchar** values,
                  gpointer data, GError** error) {
    auto& reading = *static_cast<Reading*>(data);
    if (g_str_equal(element, "calls")) reading.found = true;
    if (!g_str_equal(element, "call")) return;
    int line = 0;
    g_markup_parse_context_get_position(context, &line, nullptr);
    Attributes attributes;
    for (; *names != nullptr; ++names, ++values) attributes.emplace(*names, *values);
    takeCall(reading, attributes, line);
    if (!reading.problem.empty())
        g_set_error_literal(error, G_MARKUP_ERROR, G_MARKUP_ERROR_INVALID_CONTENT, reading.problem.c_str());
}

// The program writes a letter outside of the basic plane as two references, which XML does not know.
std::string withWholeReferences(const std::string& text) {
    static const std::regex pair("&#(5[56][0-9]{3});&#(5[67][0-9]{3});");
    std::string result;
    auto rest = text.cbegin();
    for (std::sregex_iterator match(text.begin(), text.end(), pair), end; match != end; ++match) {
        const int high = std::stoi((*match)[1]), low = std::stoi((*match)[2]);
        result.append(rest, (*match)[0].first);
        rest = (*match)[0].second;
        const bool isPair = high >= 0xD800 && high < 0xDC00 && low >= 0xDC00 && low < 0xE000;
        result += isPair ? "&#" + std::to_string(0x10000 + (high - 0xD800) * 0x400 + (low - 0xDC00)) + ";"
                         : (*match)[0].str();
    }
    return result.append(rest, text.cend());
}

// What the first line says, if it does.
std::string declaredCharset(const std::string& text) {
    static const std::regex declaration("^\\s*<\\?xml[^>]*encoding\\s*=\\s*[\"']([A-Za-z0-9._:-]+)[\"']");
    std::smatch match;
    const std::string head = text.substr(0, 200);
    return std::regex_search(head, match, declaration) ? match[1].str() : std::string();
}

struct FreeContext {
    void operator()(GMarkupParseContext* context) const { g_markup_parse_context_free(context); }
};

}  // namespace

Result<std::vector<WrittenCall>> readCallXml(Text text, const std::string& charset, Findings& findings) {
    const std::string declared = declaredCharset(text.bytes);
    makeUtf8(text, declared.empty() ? charset : declared, findings);
    const std::string xml = withWholeReferences(text.bytes);
    Reading reading{text.file, findings, {}, false, {}};
    const GMarkupParser parser{startElement, nullptr, nullptr, nullptr, nullptr};
    const std::unique_ptr<GMarkupParseContext, FreeContext> context(
        g_markup_parse_context_new(&parser, G_MARKUP_TREAT_CDATA_AS_TEXT, &reading, nullptr));
    GError* error = nullptr;
    const bool parsed =
        g_markup_parse_context_parse(context.get(), xml.data(), static_cast<gssize>(xml.size()), &error) &&
        g_markup_parse_context_end_parse(context.get(), &error);
    const std::string said = error != nullptr ? error->message : "";
    g_clear_error(&error);
    int line = 0;
    g_markup_parse_context_get_position(context.get(), &line, nullptr);
    if (!reading.problem.empty()) return failure(reading.problem);
    if (!parsed) return failure(placeOf(text.file, line) + ": is not sound XML: " + said);
    if (!reading.found) return failure(text.file + ": this XML holds no <calls>, so it is no backup of calls");
    return std::move(reading.calls);
}

}  // namespace maker
