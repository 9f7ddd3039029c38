#include "host/ZorvoHost.h"

#include <iostream>

int main(int argc, char** argv) {
    return Tevra::RunZorvo(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
