#include "console/arguments.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>

namespace {

using Kind = Arguments::Source::Kind;

// Taken as it is given: an empty text, and one that begins with a hyphen, too.
CLI::Option* addRepeated(CLI::App& app, const char* name, const char* valueName,
                         const char* description)
{
    return app
        .add_option(
            name, [](const CLI::results_t&) { return true; }, description)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false)
        ->type_name(valueName);
}

} // namespace

std::variant<Arguments, ExitStatus> parseArguments(int count, const char* const* values)
{
    CLI::App app("Checks drawings, and puts them right, by a description of what may be in them.",
                 "kelmaro");
    Arguments arguments;
    std::string description;
    std::string output;
    app.set_help_flag("--help", "Print this help and end");
    app.set_version_flag("--version", "kelmaro " KELMARO_VERSION, "Print the version and end");
    app.add_option("DRAWING", arguments.drawings, "Drawings to open; the last is the current one")
        ->type_name("");
    CLI::Option* const descriptionOption =
        app.add_option("-d", description, "Load this description")->type_name("DESCRIPTION");
    CLI::Option* const script = addRepeated(app, "-s", "SCRIPT", "Type the lines of this file");
    CLI::Option* const text =
        addRepeated(app, "-c", "TEXT",
                    "Type this text and Enter; as often as needed, with -s in "
                    "the order given");
    CLI::Option* const outputOption =
        app.add_option("-o", output, "Save the current drawing here at the end")
            ->type_name("OUTPUT");
    app.add_flag("--save", arguments.save, "Save in place at the end");
    app.add_flag("--new", arguments.newDrawing, "Make an empty drawing the current one");
    app.add_flag("--readonly", arguments.readOnly, "Refuse to save under the names as opened");
    app.add_option("--support", arguments.supportFolder, "Look here first for support files")
        ->type_name("DIR")
        ->check(CLI::Validator(CLI::ExistingDirectory).description(""));

    try {
        app.parse(count, values);
        if (arguments.readOnly && arguments.save)
            throw CLI::ExcludesError("--readonly", "--save");
    } catch (const CLI::Success& answer) {
        app.exit(answer);
        return ExitStatus::done;
    } catch (const CLI::ParseError& error) {
        std::cerr << "kelmaro: " << error.what() << "\nkelmaro: --help tells what can be given\n";
        return ExitStatus::usage;
    }
    if (descriptionOption->count())
        arguments.description = description;
    if (outputOption->count())
        arguments.output = output;

    std::map<const CLI::Option*, std::size_t> taken;
    for (const CLI::Option* option : app.parse_order())
        if (option == script || option == text)
            arguments.sources.push_back({option == script ? Kind::script : Kind::text,
                                         option->results().at(taken[option]++)});
    return arguments;
}
