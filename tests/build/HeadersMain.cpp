// That this program was linked is the test: it holds one unit for each public header, and this one,
// which sees them all at once.
#include <nolk/core.h>

int main() {
    return 0;
}
