// The argument walk over two tables: the switches, and the options that take a value with the
// function that takes it. Arguments that are not options are the directories; "--" ends the
// options.
#include "find_options.h"

#include <cstddef>
#include <cstring>

namespace {

char const* SetAttributes(FindOptions& options, std::string const& value, char test) {
    if (options.attributeTest != 0)
        return "only one of --attr, --attr-any and --not-attr may be given";
    if (!ParseAttributeLetters(value, options.attributes))
        return "expected attribute letters from RHSDAENTC";
    options.attributeTest = test;
    return nullptr;
}

char const* SetDate(DateTest& date, std::string const& value) {
    if (date.test != 0)
        return "may be given once";
    if (!ParseDateTest(value, date))
        return "expected =DATE, <DATE or >DATE, DATE as YYYY-MM-DD[THH:MM:SS] from 1601";
    return nullptr;
}

char const* SetText(FindOptions& options, std::string const& value, BYTE mode) {
    if (options.containingMode != 0)
        return "only one of --text, --any-word and --all-words may be given";
    if (value.empty())
        return "expected a text that is not empty";
    options.text = value;
    options.containingMode = mode;
    return nullptr;
}

char const* SetFields(FindOptions& options, std::string const& value) {
    std::vector<unsigned> fields;
    std::size_t start = 0;
    for (;;) {
        std::size_t const comma = value.find(',', start);
        unsigned column = 0;
        if (!ParseColumnName(value.substr(start, comma - start), column))
            return "expected column names from "
                   "name,drive,path,size,attributes,created,accessed,written";
        fields.push_back(column);
        if (comma == std::string::npos)
            break;
        start = comma + 1;
    }
    options.fields = fields;
    return nullptr;
}

// The options that name a file: each may be given once.
template <std::string FindOptions::*file>
char const* FileRule(FindOptions& options, std::string const& value) {
    if (!(options.*file).empty())
        return "may be given once";
    if (value.empty())
        return "expected a file name";
    options.*file = value;
    return nullptr;
}

// The options that a saved listing keeps beside the library's criteria, since tessik-find
// applies them itself: the 64-bit size, the dates and whether the search recurses.
bool KeptInSavedListing(char const* name) {
    for (char const* kept : {"--no-recurse", "--size", "--written", "--created", "--accessed"})
        if (std::strcmp(name, kept) == 0)
            return true;
    return false;
}

// Options without a value: each sets one switch.
struct Switch {
    char const* name;
    char const* alias; // null when there is none
    bool FindOptions::*field;
    bool value;
};

Switch const switches[] = {
    {"--help", "-h", &FindOptions::help, true},
    {"--no-recurse", "-n", &FindOptions::recursive, false},
    {"--ignore-case", "-i", &FindOptions::ignoreCase, true},
    {"--invert", nullptr, &FindOptions::invertText, true},
    {"--stats", nullptr, &FindOptions::stats, true},
    {"--quiet", "-q", &FindOptions::quiet, true},
    {"--posix-paths", "-p", &FindOptions::posixPaths, true},
    {"--record-dates", nullptr, &FindOptions::recordDates, true},
    {"--print0", "-0", &FindOptions::print0, true},
};

// Options with a value. The apply function gives null when it took the value, or what is
// wrong with it.
struct Rule {
    char const* name;
    char const* alias;
    char const* (*apply)(FindOptions& options, std::string const& value);
};

// Attribute test bytes: 0x01 any of the letters (clear: all of them),
// 0x04 inverted. "All of" needs a test byte that is not 0, so it takes 0x02, which the
// attribute test does not read.
Rule const rules[] = {
    {"--name", "-name",
     [](FindOptions& o, std::string const& v) -> char const* {
         if (v.empty())
             return "expected a pattern that is not empty";
         o.names.push_back(v);
         return nullptr;
     }},
    {"--size", nullptr,
     [](FindOptions& o, std::string const& v) -> char const* {
         if (o.size.test != 0)
             return "may be given once";
         return ParseSizeTest(v, o.size) ? nullptr
                                         : "expected N, -N, +N or A..B, with k, M, G or T";
     }},
    {"--attr", nullptr,
     [](FindOptions& o, std::string const& v) { return SetAttributes(o, v, 0x02); }},
    {"--attr-any", nullptr,
     [](FindOptions& o, std::string const& v) { return SetAttributes(o, v, 0x01); }},
    {"--not-attr", nullptr,
     [](FindOptions& o, std::string const& v) { return SetAttributes(o, v, 0x05); }},
    {"--written", nullptr,
     [](FindOptions& o, std::string const& v) { return SetDate(o.written, v); }},
    {"--created", nullptr,
     [](FindOptions& o, std::string const& v) { return SetDate(o.created, v); }},
    {"--accessed", nullptr,
     [](FindOptions& o, std::string const& v) { return SetDate(o.accessed, v); }},
    {"--text", nullptr, [](FindOptions& o, std::string const& v) { return SetText(o, v, 0x01); }},
    {"--any-word", nullptr,
     [](FindOptions& o, std::string const& v) { return SetText(o, v, 0x02); }},
    {"--all-words", nullptr,
     [](FindOptions& o, std::string const& v) { return SetText(o, v, 0x04); }},
    {"--sort", nullptr,
     [](FindOptions& o, std::string const& v) -> char const* {
         return ParseSortOrder(v, o.sort) ? nullptr
                                          : "expected path, or a column name with :asc or :desc";
     }},
    {"--fields", nullptr, SetFields},
    {"--save", nullptr, FileRule<&FindOptions::saveFile>},
    {"--changes", nullptr, FileRule<&FindOptions::changesFile>},
    {"--load", nullptr, FileRule<&FindOptions::loadFile>},
    {"--report", nullptr, FileRule<&FindOptions::reportFile>},
    {"--find-in", nullptr, FileRule<&FindOptions::findInFile>},
};

template <typename Entry, std::size_t count>
Entry const* Lookup(Entry const (&table)[count], std::string const& name) {
    for (Entry const& entry : table)
        if (name == entry.name || (entry.alias && name == entry.alias))
            return &entry;
    return nullptr;
}

bool HasCriteria(FindOptions const& options) {
    return !options.recursive || !options.names.empty() || options.size.test != 0 ||
           options.attributeTest != 0 || options.written.test != 0 || options.created.test != 0 ||
           options.accessed.test != 0 || options.containingMode != 0;
}

// The checks that concern more than one option.
bool Finish(FindOptions& options, std::string& error) {
    if ((options.ignoreCase || options.invertText) && options.containingMode == 0) {
        error = "-i and --invert need --text, --any-word or --all-words";
        return false;
    }
    int const sources =
        !options.loadFile.empty() + !options.changesFile.empty() + !options.findInFile.empty();
    if (sources > 1) {
        error = "only one of --load, --changes and --find-in may be given";
        return false;
    }
    if (sources == 1 && HasCriteria(options)) {
        error = "--load, --changes and --find-in take their criteria from the saved file";
        return false;
    }
    if (options.directories.empty() != options.findInFile.empty() && sources == 1) {
        error = options.findInFile.empty() ? "--load and --changes take no directory"
                                           : "--find-in needs the paths to look up";
        return false;
    }
    if (options.ignoreCase)
        options.containingMode |= 0x08;
    return true;
}

} // namespace

bool ParseFindOptions(int argc, char** argv, FindOptions& options, std::string& error) {
    bool optionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        std::string name = argv[i];
        if (optionsEnded || name.size() < 2 || name[0] != '-') {
            options.directories.push_back(name);
            continue;
        }
        if (name == "--") {
            optionsEnded = true;
            continue;
        }
        // --option=value is the same as --option value.
        std::string value;
        std::size_t const equals = name.find('=');
        bool const attached = name.compare(0, 2, "--") == 0 && equals != std::string::npos;
        if (attached) {
            value = name.substr(equals + 1);
            name.resize(equals);
        }
        if (Switch const* flag = Lookup(switches, name)) {
            if (attached) {
                error = name + " takes no value";
                return false;
            }
            options.*flag->field = flag->value;
            if (KeptInSavedListing(flag->name))
                options.keptArguments.push_back(flag->name);
            continue;
        }
        Rule const* rule = Lookup(rules, name);
        if (!rule) {
            error = "unknown option " + name;
            return false;
        }
        if (!attached) {
            if (i + 1 == argc) {
                error = name + " needs a value";
                return false;
            }
            value = argv[++i];
        }
        if (char const* complaint = rule->apply(options, value)) {
            error = name + " '" + value + "': " + complaint;
            return false;
        }
        if (KeptInSavedListing(rule->name))
            options.keptArguments.insert(options.keptArguments.end(), {rule->name, value});
    }
    return Finish(options, error);
}
