#include "sqlproof/Sweeps.h"

#include <CLI/CLI.hpp>

#include <fstream>
#include <iostream>

// sqlproof: writes the statements of thousands of conditions as JSON lines and compares the rows that each finds in the
// sample database with those that plain code picks. Exit status 1 when any differs.
int main(int argc, char** argv) {
    std::string file;
    std::size_t every = 1;
    CLI::App app{"The filter SQL of thousands of conditions against plain code"};
    app.add_option("statements", file, "where the statements go, one JSON object a line")->required();
    app.add_option("--every", every, "makes each n-th check alone")->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);

    std::ofstream statements(file);
    if (!statements) {
        std::cerr << "sqlproof: " << file << " cannot be written\n";
        return 2;
    }
    const auto host = orv::erp::ErpHost::open({});
    orv::sqlproof::Proof proof(*host, statements, every);
    const auto run = [&](const char* name, void (*sweep)(orv::erp::ErpHost&, orv::sqlproof::Proof&)) {
        const auto before = proof.tally();
        sweep(*host, proof);
        const auto after = proof.tally();
        std::cout << name << ": " << after.counted - before.counted << " counts agree ("
                  << after.someRows - before.someRows << " with rows), " << after.refused - before.refused
                  << " refused by the control, " << after.databaseErrors - before.databaseErrors << " by the database, "
                  << after.open - before.open << " written only, " << after.failed - before.failed << " failed\n";
    };
    run("fields", orv::sqlproof::sweepFields);
    run("keywords", orv::sqlproof::sweepKeywords);
    run("types", orv::sqlproof::sweepTypes);
    run("combinations", orv::sqlproof::sweepCombinations);
    const auto& tally = proof.tally();
    std::cout << tally.counted + tally.refused + tally.databaseErrors << " passed, " << tally.failed << " failed\n";
    statements.close();
    return tally.failed == 0 && tally.counted > 0 && statements ? 0 : 1;
}
