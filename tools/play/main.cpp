#include "play/CommandLine.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    try {
        return orv::play::runFilterPlay(argc, argv, std::cout, std::cerr);
    } catch (const std::exception& error) {
        std::cerr << "filterplay: " << error.what() << '\n';
        return orv::play::cannotPlay;
    }
}
