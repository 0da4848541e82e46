// zdrgen: writes a made-up drawing of a given size.
//   zdrgen --layers 10000 --states 1000 --seed 1 out.zdr
#include "DrawingGenerator.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <iostream>

namespace {

int generate(int argc, char** argv) {
    zdr::GeneratorOptions options;
    std::string path;
    CLI::App program{"Writes a made-up drawing; the same options write the same bytes on every system."};
    program.allow_windows_style_options(false); // a path may begin with a slash there too
    program.add_option("--layers", options.layers, "number of layers")
        ->check(CLI::Range(1, 1000000))
        ->capture_default_str();
    program.add_option("--states", options.states, "number of layer states; half of them match the drawing")
        ->capture_default_str();
    program.add_option("--entities", options.entities, "number of entities")->capture_default_str();
    program
        .add_option("--named-colors", options.namedColors, "number of named colors, which a tenth of the layers has")
        ->capture_default_str();
    program.add_option("--seed", options.seed, "what the made-up values depend on")->capture_default_str();
    program.add_option("file", path, "the drawing to write")->required();
    CLI11_PARSE(program, argc, argv);

    std::wstring reason;
    zdr::FileStamp stamp;
    const std::wstring widePath = zdr::widePath(std::filesystem::path(path));
    if (zdr::writeDrawingFile(widePath, zdr::generateDrawing(options), reason, stamp, zdr::Overwrite::Always) !=
        Vorn::eOk) {
        std::cerr << "zdrgen: " << zdr::toUtf8(reason) << '\n';
        return 1;
    }
    std::cout << path << ": " << stamp.facts.size << " bytes\n";
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return generate(argc, argv);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "zdrgen: %s\n", problem.what());
        return 1;
    }
}
