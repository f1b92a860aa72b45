// `tolvane` from outside, as far as it is the same for every command.
#include "tests/tools/Sanitized.h"
#include "tests/tools/TolvaneRun.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing::HasSubstr;
using testing::Pair;
using testing::StartsWith;
using Json = nlohmann::ordered_json;
using Words = std::vector<std::string>;

Words operator+(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

// ---- What each command has ----

std::set<std::string> wordsOf(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

const std::map<std::string, std::set<std::string>> kOptions{
    {"", wordsOf("-h --help -V --version")},
    {"run", wordsOf("-h --help --jobs --frames --fps --animation --root --churn --svg --html "
                    "--json -q --quiet --verbose --plugin --types --memory-limit --time-limit "
                    "-V --version")},
    {"info", wordsOf("-h --help --root --json -q --quiet --memory-limit --time-limit "
                     "-V --version")},
    {"check",
     wordsOf("-h --help --types --only --seed --jobs --json --list --failed --memory-limit "
             "--time-limit -V --version")},
    {"inspect", wordsOf("-h --help --plugin --types --json -q --quiet --memory-limit --time-limit "
                        "-V --version")},
    {"trace", wordsOf("-h --help --generated --elements --seed --port --frame --fps --animation "
                      "--root --direction --fail --format --json -q --quiet --verbose --plugin "
                      "--types --memory-limit --time-limit -V --version")},
    {"show", wordsOf("-h --help --port --frame --fps --animation --root --json -q --quiet --plugin "
                     "--types --memory-limit --time-limit -V --version")}};

std::set<std::string> commands() {
    std::set<std::string> names;
    for (const auto& [command, options] : kOptions)
        if (!command.empty()) names.insert(command);
    return names;
}

Words asWords(const std::string& command) { return command.empty() ? Words{} : Words{command}; }

std::string helpOf(const std::string& command) {
    const TolvaneProcess process = runTolvane(asWords(command) + Words{"--help"});
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.errors, "");
    return process.output;
}

// What the help says of each option.
std::map<std::string, std::string> optionsIn(const std::string& help) {
    std::map<std::string, std::string> options;
    std::istringstream lines(help.substr(help.find("\nOptions:\n") + 10));
    std::string names;
    for (std::string line; std::getline(lines, line) && !line.empty();) {
        if (line[2] == '-') names = line.substr(2, line.find(' ', 2) - 2);
        std::istringstream all(names);
        for (std::string name; std::getline(all, name, ',');) options[name] += line + "\n";
    }
    return options;
}

TEST(TolvaneCommandLine, HelpsWithEachOptionOfEachCommand) {
    for (const auto& [command, options] : kOptions) {
        std::set<std::string> named;
        for (const auto& [name, text] : optionsIn(helpOf(command))) named.insert(name);
        EXPECT_EQ(named, options) << command;
    }
    for (const std::string& command : commands())
        EXPECT_THAT(helpOf(""), HasSubstr("\n  " + command + " "));
}

TEST(TolvaneCommandLine, SaysOfAnOptionTheSameInEachCommand) {
    std::map<std::string, std::string> texts;
    for (const char* command : {"run", "info", "inspect", "trace", "show", "check"})
        for (const auto& [name, text] : optionsIn(helpOf(command))) {
            const bool isOfItsOwn = command + (" " + name) == "inspect --plugin" ||
                                    command + (" " + name) == "check --time-limit";
            if (isOfItsOwn || name == "--json" || name == "--port" || name == "--jobs") continue;
            EXPECT_EQ(texts.try_emplace(name, text).first->second, text) << command;
        }
    EXPECT_GT(texts.size(), 20U);
}

TEST(TolvaneCommandLine, PrintsHelpThatFitsAScreen) {
    for (const auto& [command, options] : kOptions) {
        const std::string help = helpOf(command);
        EXPECT_LE(std::count(help.begin(), help.end(), '\n'), command.empty() ? 24 : 50) << command;
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
    }
}

// ---- Completions and manual pages ----

std::set<std::string> printedBy(const std::string& script, const Words& arguments) {
    const TemporaryFolder folder;
    std::string command = "bash -c " + quoted(script) + " bash";
    for (const std::string& argument : arguments) command += " " + quoted(argument);
    EXPECT_EQ(std::system((command + " >" + quoted(folder.path("out"))).c_str()), 0);
    return wordsOf(readFile(folder.path("out")));
}

std::set<std::string> completedInBash(const Words& words) {
    return printedBy("source '" COMPLETIONS
                     "/tolvane.bash'; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _tolvane; "
                     "echo \"${COMPREPLY[@]}\"",
                     Words{TOLVANE} + words);
}

TEST(TolvaneCompletion, KnowsEachCommandAndOptionInBash) {
    EXPECT_EQ(completedInBash({""}), commands());
    EXPECT_EQ(completedInBash({"--help", "in"}), wordsOf("info inspect"));
    for (const auto& [command, options] : kOptions)
        EXPECT_EQ(completedInBash(asWords(command) + Words{"-"}), options) << command;
    EXPECT_EQ(completedInBash({"trace", "--json", "walk.bvh", "--f"}),
              wordsOf("--fail --format --fps --frame"));
}

// The other shells ask the program too, by pipelines that any shell understands.
TEST(TolvaneCompletion, KnowsEachCommandAndOptionInOtherShells) {
    for (const char* file : {"_tolvane", "tolvane.fish"}) {
        const std::string text = readFile(std::string(COMPLETIONS "/") + file);
        std::set<std::string> ofCommands, ofOptions;
        const std::regex pipeline(R"(sed -n '[^']*'( \| tr , '[^']*')?)");
        for (std::sregex_iterator found(text.begin(), text.end(), pipeline), end; found != end;
             ++found)
            ((*found)[1].matched ? ofOptions : ofCommands).insert(found->str());
        ASSERT_EQ(ofCommands.size(), 1U) << file;
        ASSERT_EQ(ofOptions.size(), 1U) << file;
        const std::string ask = "\"$@\" --help | ";
        EXPECT_EQ(printedBy(ask + *ofCommands.begin(), {TOLVANE}), commands()) << file;
        for (const auto& [command, options] : kOptions)
            EXPECT_EQ(printedBy(ask + *ofOptions.begin(), Words{TOLVANE} + asWords(command)),
                      options)
                << file << " " << command;
    }
}

#ifdef MANUAL_PAGES
TEST(TolvaneManual, HasAPageForEachCommandWithEachOption) {
    for (const auto& [command, options] : kOptions) {
        const std::string name = command.empty() ? "tolvane" : "tolvane-" + command;
        std::string page = readFile(MANUAL_PAGES "/" + name + ".1");
        page = std::regex_replace(page, std::regex(R"(\\f.)"), "");
        page = std::regex_replace(page, std::regex(R"(\\-)"), "-");
        std::string heading = name;
        std::transform(name.begin(), name.end(), heading.begin(), toupper);
        EXPECT_THAT(page, HasSubstr(".TH " + heading + " "));
        EXPECT_THAT(page, HasSubstr(".SH NAME\n" + name + " - "));
        for (const std::string& option : options)
            EXPECT_TRUE(
                std::regex_search(page, std::regex("\n\\.TP\n([^ \n]*,)?" + option + "[, \n]")))
                << name << " " << option;
    }
}
#endif

TEST(Readme, ShowsCheckOnItsFirstScreen) {
    std::istringstream lines(readFile(README));
    std::string screen;
    std::string line;
    for (int i = 0; i < 40 && std::getline(lines, line); ++i) screen += line + "\n";
    EXPECT_THAT(screen, HasSubstr("tolvane check "));
}

// ---- Version, and what is no command ----

TEST(TolvaneCommandLine, PrintsItsVersionAlsoBehindACommand) {
    for (const auto& [command, options] : kOptions)
        for (const char* option : {"-V", "--version"}) {
            const TolvaneProcess process = runTolvane(asWords(command) + Words{option});
            EXPECT_EQ(process.status, 0);
            EXPECT_EQ(process.errors, "");
            EXPECT_EQ(process.output, "tolvane 2.11.0.0\n");
        }
}

TEST(TolvaneCommandLine, RefusesAMissingCommand) {
    const TolvaneProcess process = runTolvane({});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.output, "");
    EXPECT_EQ(process.errors,
              "tolvane: a command is missing; \"tolvane run\" runs the bundled example\n");
}

TEST(TolvaneCommandLine, RefusesAnUnknownCommandAndNamesTheHelp) {
    const TolvaneProcess process = runTolvane({"walk"});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.output, "");
    EXPECT_THAT(process.errors, HasSubstr("not expected: walk"));
    EXPECT_THAT(process.errors, HasSubstr("(try \"tolvane --help\")\n"));
}

// ---- Exit statuses, and what is said ----

class TolvaneCommands : public TolvaneRun {
protected:
    // Both without and with --json.
    static void expectEnd(const Words& arguments, int status, const std::string& stage,
                          const std::string& line) {
        const TolvaneProcess plain = runTolvane(arguments);
        EXPECT_EQ(plain.status, status) << testing::PrintToString(arguments);
        EXPECT_EQ(plain.output, "");
        EXPECT_THAT(plain.errors, StartsWith("tolvane: " + line));
        EXPECT_EQ(plain.errors.find('\n'), plain.errors.size() - 1);

        const TolvaneProcess json = runTolvane(arguments + Words{"--json"});
        EXPECT_EQ(json.status, status);
        EXPECT_EQ(json.errors, plain.errors);
        const Json error = Json::parse(json.output)["error"];
        EXPECT_EQ(error["stage"], stage);
        EXPECT_EQ("tolvane: " + error.value("what", "") + "\n", plain.errors);
    }

    // Each command without a rig and without a library.
    const std::map<std::string, Words> kBare{
        {"run", {"run"}},
        {"info", {"info"}},
        {"check", {"check"}},
        {"inspect", {"inspect"}},
        {"trace", {"trace", "--port", "Rigging::Module::Pins"}},
        {"show", {"show", "--port", "Rigging::Module::Pins"}}};
    const std::string kNone = folder.path("none");
};

TEST_F(TolvaneCommands, RefuseAnUnknownOptionAndNameTheirHelp) {
    for (const auto& [command, bare] : kBare) {
        const TolvaneProcess process = runTolvane(bare + Words{"--fast"});
        EXPECT_THAT(process.errors, HasSubstr("(try \"tolvane " + command + " --help\")\n"));
        expectEnd(bare + Words{"--fast"}, 2, "usage",
                  "The following argument was not expected: --fast");
    }
}

TEST_F(TolvaneCommands, RefuseARigThatIsNotThereOrIsNone) {
    const std::string notes = folder.write("notes.txt", "Remember the milk.\n");
    for (const char* command : {"run", "info", "trace", "show"}) {
        expectEnd(kBare.at(command) + Words{kNone}, 2, "reading",
                  kNone + ": there is no such file");
        expectEnd(kBare.at(command) + Words{notes}, 2, "reading", notes + ": ");
        expectEnd(kBare.at(command) + Words{"--root", "none"}, 2, "reading", "");
    }
}

TEST_F(TolvaneCommands, RefuseALibraryThatIsNotThereOrIsNone) {
    const std::string file = rig();
    for (const char* command : {"run", "inspect", "trace", "show"}) {
        const Words bare = kBare.at(command) + Words{"--plugin"};
        expectEnd(bare + Words{kNone}, 2, "loading", kNone + ": there is no such file");
        expectEnd(bare + Words{file}, 2, "loading", file + ": cannot be loaded");
    }
    for (const char* command : {"check", "inspect"})
        expectEnd({command, kNone}, 2, "loading", kNone + ": there is no such file");
}

TEST_F(TolvaneCommands, RefuseTypesThatAreNotThere) {
    for (const auto& [command, bare] : kBare)
        if (command != "info")
            expectEnd(
                bare + (command == "check" ? Words{PLUGIN} : Words{}) + Words{"--types", kNone}, 2,
                "reading", kNone + ": there is no such file");
}

// Without a rig they take the walk that comes with the program.
TEST_F(TolvaneCommands, TakeTheirRigTheSameWay) {
    const std::string gltf = folder.write("rig.gltf", sampleGltf());
    const Words more{gltf, "--root", "Tip", "--animation", "still", "--fps", "10"};
    for (const char* command : {"run", "trace", "show"}) {
        const TolvaneProcess walk = runTolvane(kBare.at(command));
        EXPECT_EQ(walk.status, 0);
        EXPECT_THAT(walk.output, HasSubstr("examples/walk.bvh"));
        EXPECT_EQ(runTolvane(kBare.at(command) + more).status, 0);
    }
    EXPECT_THAT(runTolvane({"info"}).output, HasSubstr("examples/walk.bvh"));
    EXPECT_EQ(Json::parse(
                  runTolvane({"info", gltf, "--root", "Tip", "--json"}).output)["joints"]["count"],
              1);
    const auto seen = [&](const Words& options) {
        return Json::parse(
            runTolvane(kBare.at("show") + Words{gltf, "--json", "matrices[0]"} + options)
                .output)["value"][3];
    };
    EXPECT_EQ(seen({"--root", "Tip", "--frame", "5", "--fps", "10"}),
              Json::parse("[0.0, 7.0, 0.0, 1.0]"));
    EXPECT_EQ(seen({"--root", "Tip", "--frame", "30"}), Json::parse("[4.0, 7.0, 0.0, 1.0]"));
}

TEST_F(TolvaneCommands, FailWithTheLibraryWhosePortsGetNoAttribute) {
    const std::string line = PLUGIN ": ports of int get no attribute\n";
    expectEnd({"show", rig(), "--port", "int"}, 1, "ports", line);
    expectEnd({"trace", rig(), "--port", "int"}, 1, "ports", line);
    expectEnd({"trace", "--generated", "int"}, 1, "ports", line);
}

struct Downfall {
    const char* stage;
    const char* word;
    const char* told;
    Words commands;
};

TEST_F(TolvaneCommands, SayWhenALibraryGoesDownOrPrints) {
    const std::string kNames = "names";
    const std::vector<Downfall> downfalls{
        {"names", "names", "while it is asked for its names", {"inspect", "trace"}},
        {"ports", "ports", "while it is given port out", {"inspect", "trace", "show"}},
        {"reading", "evaluating", "while port in is evaluated in frame 2", {"trace", "show"}},
        {"writing", "evaluating", "while port out is evaluated in frame 2", {"trace", "show"}},
        {"unloading", "unloading", "while it is unloaded", {"inspect", "trace", "show"}}};
    for (const Downfall& downfall : downfalls)
        for (const std::string& command : downfall.commands) {
            const bool asksForNames = command == "trace" && downfall.stage == kNames;
            const Words arguments = (asksForNames ? Words{command} : kBare.at(command)) +
                                    Words{"--plugin", MISBEHAVING_LIBRARY} +
                                    (command == "inspect" ? Words{} : Words{rig(), "--frame", "2"});
            const auto with = [&](const char* how, const Words& more) {
                return runTolvane(arguments + more,
                                  std::string("TOLVANE_TEST_FAULT=") + how + " " + downfall.stage);
            };
            const std::string start = "tolvane: " MISBEHAVING_LIBRARY ": ";
            const TolvaneProcess crash = with("crashes", {});
            EXPECT_EQ(crash.status, 1);
            EXPECT_EQ(crash.output, "");
            EXPECT_EQ(crash.errors, start + "crashes (segmentation fault) " + downfall.told + "\n");

            // A whole trace takes its time.
            if (asksForNames) continue;
            const TolvaneProcess print = with("prints", {"--json"});
            EXPECT_EQ(print.status, 1);
            EXPECT_EQ(print.errors, start + "prints \"Hello\" " + downfall.told + "\n");
            const Json report = Json::parse(print.output);
            EXPECT_EQ(report["ok"], false);
            EXPECT_EQ(report["error"]["stage"], downfall.word);
            EXPECT_EQ(report["error"]["file"], MISBEHAVING_LIBRARY);
            EXPECT_EQ("tolvane: " + report["error"].value("what", "") + "\n", print.errors);
        }
}

TEST_F(TolvaneCommands, PrintNothingIfQuietButTheVerdictOfAFailure) {
    for (const auto& [command, bare] : kBare) {
        if (command == "check") continue;
        const TolvaneProcess process = runTolvane(bare + Words{"-q"});
        EXPECT_EQ(process.status, 0);
        EXPECT_EQ(process.output + process.errors, "");
        EXPECT_TRUE(Json::accept(runTolvane(bare + Words{"-q", "--json"}).output));
    }
    const std::string types = folder.write("types.json", R"({"structs": [{"name": "Odd", "members":
        [{"name": "number", "type": "double"}]}]})");
    const auto odd = [&](const Words& arguments, const std::string& environment) {
        const TolvaneProcess process = runTolvane(arguments + Words{"-q"}, environment);
        EXPECT_EQ(process.status, 1);
        EXPECT_EQ(process.errors, "");
        return process.output;
    };
    const std::string noFault = "TOLVANE_TEST_FAULT=";
    EXPECT_EQ(odd({"trace", "--generated", "Odd", "--types", types}, noFault),
              "FAILED: 2 values were not carried.\n");
    EXPECT_EQ(odd({"show", "--port", "Odd", "--types", types}, noFault),
              "FAILED: the value was not read.\n");
    EXPECT_EQ(odd({"inspect", FAULTY_LIBRARY}, noFault + "adds no port anywhere"),
              "FAILED: ports of 14 types get no attribute.\n");
}

TEST_F(TolvaneCommands, RefuseNumbersInWords) {
    struct Number {
        const char* command;
        const char* option;
        Words values;
        const char* what;
    };
    for (const Number& number : std::vector<Number>{
             {"run", "--jobs", {"0", "-1", "10001", "many", "2x"}, "whole number from 1 to 10,000"},
             {"check", "--jobs", {"0", "-1"}, "whole number from 1 to 10,000"},
             {"check", "--seed", {"-1"}, "whole number from 0 to 18,446,744,073,709,551,615"},
             {"run",
              "--fps",
              {"0", "-5", "nan", "inf", "fast", "5x"},
              "number from 0.001 to 1,000,000"},
             {"run",
              "--memory-limit",
              {"0", "-1", "nan", "4GiB"},
              "number from 0.001 to 1,000,000"},
             {"run", "--time-limit", {"0", "-1", "1.5"}, "whole number from 1 to 1,000,000"},
             {"trace",
              "--elements",
              {"-1", "1000001", "300000000"},
              "whole number from 0 to 1,000,000"},
             {"trace",
              "--seed",
              {"-1", "18446744073709551616"},
              "whole number from 0 to 18,446,744,073,709,551,615"},
             {"trace", "--frame", {"-1"}, "whole number from 0 to 1,000,000,000"},
             {"show", "--frame", {"-1"}, "whole number from 0 to 1,000,000,000"},
             {"trace", "--fail", {"-1", "0"}, "whole number from 1 to 1,000,000,000"}})
        for (const std::string& value : number.values) {
            const TolvaneProcess process = runTolvane(
                kBare.at(number.command) + Words{std::string(number.option) + "=" + value});
            EXPECT_EQ(process.status, 2);
            EXPECT_EQ(process.errors, std::string("tolvane: ") + number.option + " \"" + value +
                                          "\": is not a " + number.what + " (try \"tolvane " +
                                          number.command + " --help\")\n");
        }
}

TEST_F(TolvaneCommands, AnswerAnErrorWithAnObjectHoweverJsonIsAskedFor) {
    const auto answer = [&](const Words& arguments) {
        const TolvaneProcess process = runTolvane(arguments);
        EXPECT_EQ(process.status, 2);
        return process.output;
    };
    for (const Words& words :
         {Words{"run", "--json=true", kNone}, Words{"run", kNone, "--json=1"},
          Words{"run", "--json", "--fast"}, Words{"trace", "--format", "json", kNone},
          Words{"trace", "--format=json", "--fast"}, Words{"trace", kNone, "--format=trace-event"},
          Words{"trace", "--json", "--format", "trace-event"},
          Words{"trace", "--json", "--format=text"}})
        EXPECT_TRUE(Json::accept(answer(words))) << testing::PrintToString(words);
    for (const Words& words :
         {Words{"run", "--json=false", kNone}, Words{"trace", "--format", "text", kNone},
          Words{"info", "--", "--json"}})
        EXPECT_EQ(answer(words), "") << testing::PrintToString(words);
}

TEST_F(TolvaneCommands, SayWhyStandardOutputCannotBeWritten) {
    const std::string other = folder.write("other.bvh", sampleBvh());
    const std::vector<Words> all{{"check", "--list"},
                                 {"check", PLUGIN, "--only", "loading/loads"},
                                 {"--help"},
                                 {"run", "--version"},
                                 {"run", rig()},
                                 {"run", rig(), "--json"},
                                 {"info"},
                                 {"run", rig(), other},
                                 {"inspect"},
                                 {"run", rig(), other, "--json"},
                                 kBare.at("show"),
                                 {"trace", "--generated", "Rigging::Module::Pins"}};
    for (const Words& words : all) {
        std::string command = quoted(TOLVANE);
        for (const std::string& word : words) command += " " + quoted(word);
        const int status =
            std::system((command + " >/dev/full 2>" + quoted(folder.path("errors"))).c_str());
        EXPECT_EQ(WEXITSTATUS(status), 2) << command;
        EXPECT_EQ(readFile(folder.path("errors")),
                  "tolvane: standard output: cannot be written: no space left on device\n")
            << command;
    }
}

// What the program makes itself is not put down to the library.
TEST_F(TolvaneCommands, TakeMemoryForGeneratedDataInTheirOwnName) {
    if (kIsSanitized) GTEST_SKIP() << "a sanitizer ends the process in its own way";
    const auto trace = [](const char* elements, const char* gibibytes) {
        return runTolvane({"trace", "--generated", "Rigging::Module::Pins", "--elements", elements,
                           "--memory-limit", gibibytes});
    };
    for (const char* elements : {"1000000", "30000"}) {
        const TolvaneProcess process = trace(elements, "0.0625");
        EXPECT_EQ(process.status, 2);
        EXPECT_EQ(process.errors, "tolvane: what is asked for takes more than 64 MiB of memory\n");
    }
}

}  // namespace
