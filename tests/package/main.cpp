// Reads a small document, and then a broken one, with the installed library.
#include <nolk/core/XmlParseLineColException.h>
#include <nolk/core/XmlReader.h>
#include <cstring>
#include <iostream>
#include <string>

namespace {

std::string localNamesOf(const char* document) {
    nolk::XmlReader reader(document, std::strlen(document));
    std::string names;
    while (!reader.eof()) {
        reader.readNextNode();
        if (reader.getLastNodeType() == nolk::XmlReader::StartTag) {
            names += reader.getLastName().getLocalName() + ' ';
        }
    }
    return names;
}

bool check(const std::string& what, const std::string& found, const std::string& expected) {
    std::cout << what << ": " << found << '\n';
    if (found != expected) {
        std::cerr << what << " should have been: " << expected << '\n';
    }
    return found == expected;
}

}  // namespace

int main() {
    bool good =
        check("elements", localNamesOf("<o:order xmlns:o='urn:o'><o:line>1</o:line></o:order>"),
              "order line ");
    try {
        localNamesOf("<order>\n<line amount></line></order>");
        good = check("a broken document", "was read", "is refused");
    } catch (const nolk::XmlParseLineColException& e) {
        std::cout << e.what() << '\n';
        good = check("line of the fault", std::to_string(e.getLineNumber()), "2") && good;
    }
    return good ? 0 : 1;
}
