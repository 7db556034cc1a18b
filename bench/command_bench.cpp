// The commands that go through a whole drawing by looks and objects, and how their time grows from
// a tenth of the entities to all. kelmaro-command-bench [ENTITIES [FOLDER]]

#include "bench/console.h"
#include "bench/look_drawing.h"
#include "bench/measure.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

namespace fs = std::filesystem;

namespace {

constexpr int kRuns = 3;

struct Row {
    const char* what;
    Classified classified;
    ObjectsBy by;
    std::wstring typed;
    const wchar_t* told; // in what is printed if all went well
};

fs::path templatePath(const fs::path& folder)
{
    return folder / "template.txt";
}

std::vector<Row> rows(const fs::path& folder)
{
    using enum Classified;
    using enum ObjectsBy;
    return {
        {"KELMARO_CLASSIFY_AUTO 0, objects by layer or not", no, layerOrColor,
         L"KELMARO_CLASSIFY_AUTO\n0\n0\n\n", L"Completed: "},
        {"KELMARO_CLASSIFY_AUTO 0, objects without layers", no, colorAlone,
         L"KELMARO_CLASSIFY_AUTO\n0\n0\n\n", L"Completed: "},
        {"KELMARO_CLASSIFY_AUTO 1", yes, colorAlone, L"KELMARO_CLASSIFY_AUTO\n1\n0\n\n",
         L"Completed: "},
        {"KELMARO_SORT", yes, layerOrColor, L"KELMARO_SORT\n\n", L"Regenerating model."},
        {"KELMARO_STAT", yes, layerOrColor, L"KELMARO_STAT\n\n", L"Classes: "},
        {"KELMARO_TEMPLATE, 5,000 looks", no, layerOrColor,
         L"KELMARO_TEMPLATE\n\n\n\"" + templatePath(folder).wstring() + L"\"\n", L"Completed: "},
    };
}

fs::path drawingPath(const fs::path& folder, std::size_t entities, Classified classified)
{
    return folder / ((classified == Classified::yes ? "classified-" : "looks-") +
                     std::to_string(entities) + ".dxf");
}

fs::path descriptionPath(const fs::path& folder, ObjectsBy by)
{
    return folder / (by == ObjectsBy::layerOrColor ? "by-layer.txt" : "by-color.txt");
}

void makeFiles(const fs::path& folder, std::size_t entities)
{
    measure(1, [&] {
        const host::HostSession session({.profile = folder / "profile"});
        for (const std::size_t count : {entities / 10, entities})
            for (const Classified classified : {Classified::no, Classified::yes})
                writeLookDrawing(drawingPath(folder, count, classified), count, classified);
        for (const ObjectsBy by : {ObjectsBy::layerOrColor, ObjectsBy::colorAlone})
            writeLookDescription(descriptionPath(folder, by), by);
    });
}

Measured measured(const Row& row, const fs::path& folder, std::size_t entities)
{
    return measurePrepared(kRuns, [&]() -> std::function<void()> {
        auto console = std::make_shared<Console>(drawingPath(folder, entities, row.classified),
                                                 descriptionPath(folder, row.by));
        fs::remove(templatePath(folder)); // so that nothing is asked
        return [console, &row] {
            console->type(row.typed);
            if (!console->saw(row.told) || console->saw(L"rror") ||
                console->saw(std::wstring(row.told) + L"0"))
                throw std::runtime_error(std::string(row.what) + " did not go well");
        };
    });
}

bool run(std::size_t entities, const fs::path& folder)
{
    makeFiles(folder, entities);
    std::printf("%zu entities and a tenth of them, %zu objects (linear: 10 times)\n", entities,
                kObjects);
    bool complete = true;
    for (const Row& row : rows(folder)) {
        const Measured part = measured(row, folder, entities / 10);
        const Measured all = measured(row, folder, entities);
        if (part.failed || all.failed) {
            std::printf("%-50s failed\n", row.what);
            complete = false;
        } else
            std::printf("%-50s %8.3f s %8.3f s  %6.2f times\n", row.what, part.seconds, all.seconds,
                        all.seconds / part.seconds);
        std::fflush(stdout);
    }
    return complete;
}

} // namespace

int main(int count, char** arguments)
{
    const std::size_t entities = count > 1 ? std::strtoull(arguments[1], nullptr, 10) : 100'000;
    const fs::path folder =
        count > 2 ? fs::path(arguments[2]) : fs::temp_directory_path() / "kelmaro-bench";
    fs::create_directories(folder);
    try {
        return run(entities, folder) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return 1;
    }
}
