// Opening, saving, a full scan and the memory after both, on a generated drawing, against floors
// measured in the same run. kelmaro-bench [ENTITIES [FOLDER]]

#include "bench/big_drawing.h"
#include "bench/console.h"
#include "bench/floors.h"
#include "bench/measure.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/entity.h"
#include "host/start/host_session.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

namespace fs = std::filesystem;

namespace {

constexpr int kRuns = 3;

struct Files {
    fs::path drawing;
    fs::path description;
    fs::path copy;
    double bytes = 0.0;
};

std::unique_ptr<AcDbDatabase> opened(const fs::path& path)
{
    auto database = std::make_unique<AcDbDatabase>(false, true);
    std::wstring message;
    if (database->readDwgFile(path, &message) != Acad::eOk)
        throw std::runtime_error("cannot open " + path.string());
    return database;
}

void decodeEveryEntity(AcDbDatabase& database)
{
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> iterator;
    space->newIterator(iterator);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectPointer<AcDbEntity> entity(iterator->entityId(), AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk || entity->tags().empty())
            throw std::runtime_error("an entity does not open");
    }
}

std::function<void()> scan(const Files& files)
{
    auto console = std::make_shared<Console>(files.drawing, files.description);
    return [console] {
        console->type(L"KELMARO_SEL_ALL 1 1 1 \n");
        if (!console->saw(L"Selected: "))
            throw std::runtime_error("KELMARO_SEL_ALL found nothing to scan");
    };
}

std::function<void()> undoOneChange(const Files& files)
{
    auto console = std::make_shared<Console>(files.drawing, files.description);
    console->type(L"ERASE L\n\n");
    return [console] { console->type(L"U\n"); };
}

void row(const char* what, const Measured& measured, double floor, double budget,
         const Files& files)
{
    if (measured.failed) {
        std::printf("%-44s failed\n", what);
        return;
    }
    std::printf("%-44s %9.3f s", what, measured.seconds);
    if (floor > 0.0)
        std::printf("  %5.2f of the floor (budget %.1f)", measured.seconds / floor, budget);
    else
        std::printf("  %32s", "");
    std::printf("  memory %5.2f of the file\n",
                static_cast<double>(measured.peakBytes) / files.bytes);
}

Files makeFiles(const fs::path& folder, std::size_t entities)
{
    Files files{folder / ("big-" + std::to_string(entities) + ".dxf"), folder / "big.txt",
                folder / "copy.dxf"};
    measure(1, [&] {
        const host::HostSession session({.profile = folder / "profile"});
        writeBigDrawing(files.drawing, entities);
        writeBigDescription(files.description);
    });
    files.bytes = static_cast<double>(fs::file_size(files.drawing));
    return files;
}

void run(std::size_t entities, const fs::path& folder)
{
    const Files files = makeFiles(folder, entities);
    std::printf("%zu entities, %.0f MB\n", entities, files.bytes / 1e6);
    [[maybe_unused]] static volatile double kept = 0.0; // so that the work is done
    const Measured split = measure(kRuns, [&] { kept = splitAndConvert(files.drawing); });
    row("floor: split lines, convert numbers", split, 0, 0, files);
    const auto inSession = [&](auto work) {
        return measurePrepared(kRuns, [&files, work]() -> std::function<void()> {
            auto session = std::make_shared<host::HostSession>(
                host::SessionOptions{.profile = files.copy.parent_path() / "profile"});
            return [session, work, &files] { work(files); };
        });
    };
    row("open", inSession([](const Files& f) { opened(f.drawing).release(); }), split.seconds, 1.2,
        files);
    row("open and decode every entity",
        inSession([](const Files& f) { decodeEveryEntity(*opened(f.drawing).release()); }),
        split.seconds, 2.5, files);
    const Measured copy = measure(kRuns, [&] { copyAndSync(files.drawing, files.copy); });
    row("floor: cp and sync", copy, 0, 0, files);
    const Measured save = measurePrepared(kRuns, [&]() -> std::function<void()> {
        auto session = std::make_shared<host::HostSession>(
            host::SessionOptions{.profile = folder / "profile"});
        auto database =
            std::shared_ptr<AcDbDatabase>(opened(files.drawing).release(), [](AcDbDatabase*) {});
        fs::remove(files.copy);
        return [session, database, &files] {
            if (database->saveAs(files.copy) != Acad::eOk)
                throw std::runtime_error("saving failed");
        };
    });
    row("save unchanged", save, copy.seconds, 2.0, files);
    const Measured all = measurePrepared(kRuns, [&] { return scan(files); });
    row("KELMARO_SEL_ALL over all", all, 0, 0, files);
    const Files tenth = makeFiles(folder, entities / 10);
    const Measured part = measurePrepared(kRuns, [&] { return scan(tenth); });
    row("KELMARO_SEL_ALL over a tenth of them", part, 0, 0, tenth);
    if (!all.failed && !part.failed)
        std::printf("%-44s %9.2f times the tenth's (linear: 10)\n", "KELMARO_SEL_ALL grows",
                    all.seconds / part.seconds);
    row("U after erasing one entity", measurePrepared(kRuns, [&] { return undoOneChange(files); }),
        0, 0, files);
}

} // namespace

int main(int count, char** arguments)
{
    const std::size_t entities = count > 1 ? std::strtoull(arguments[1], nullptr, 10) : 1'000'000;
    const fs::path folder =
        count > 2 ? fs::path(arguments[2]) : fs::temp_directory_path() / "kelmaro-bench";
    fs::create_directories(folder);
    try {
        run(entities, folder);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
