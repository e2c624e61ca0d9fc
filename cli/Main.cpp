#include "Program.h"

int main(int argc, char** argv) {
    return cli::runProgram({argv + (argc > 0 ? 1 : 0), argv + argc});
}
