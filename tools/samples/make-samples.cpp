// make-samples FOLDER: writes the sample logs, labels and ranges. Run it after a change to the scripted drive
// or to a file format; its output is kept with the sources, in samples/.

#include <exception>
#include <iostream>

#include "tools/samples/SampleFiles.h"

int main(int count, char** arguments) try {
    if (count != 2) {
        std::cerr << "usage: make-samples FOLDER\n";
        return 2;
    }
    if (plotvane::WriteSamples(arguments[1])) return 0;
    std::cerr << "make-samples: cannot write to " << arguments[1] << '\n';
    return 1;
} catch (const std::exception& e) {
    std::cerr << "make-samples: " << e.what() << '\n';
    return 1;
}
