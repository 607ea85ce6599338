#include "OutlinePrinter.h"

#include <algorithm>
#include <ostream>

namespace {

constexpr std::size_t mostLines = 200;
constexpr std::size_t mostIndent = 30;

class TreePrinter {
public:
    explicit TreePrinter(std::ostream& out) : out_(out) {}

    void printChildren(const OutlineNode& parent, std::size_t level) {
        for (const auto& child : parent.children) {
            if (lines_ == mostLines) {
                return;
            }
            printNode(*child, parent.uri, level);
            printChildren(*child, level + 1);
        }
    }

    std::size_t lines() const { return lines_; }

private:
    void printNode(const OutlineNode& node, const std::string& parentUri, std::size_t level) {
        ++lines_;
        out_ << std::string(2 * std::min(level, mostIndent), ' ')
             << (node.isRest ? "(others)" : onOneLine(node.localName));
        if (!node.isRest && node.uri != parentUri) {
            out_ << " {" << onOneLine(node.uri) << '}';
        }
        if (node.count > 1) {
            out_ << " x" << node.count;
        }
        printCount(node.attributes, "attribute");
        printCount(node.texts, "text");
        out_ << '\n';
    }

    void printCount(std::uint64_t count, const char* what) {
        if (count > 0) {
            out_ << ", " << count << ' ' << what << (count == 1 ? "" : "s");
        }
    }

    std::ostream& out_;
    std::size_t lines_ = 0;
};

}  // namespace

void printTotals(std::ostream& out, const OutlineTotals& totals) {
    out << "  elements " << totals.elements << " in a depth of " << totals.depth << ", attributes "
        << totals.attributes << ", namespace declarations " << totals.declarations << "\n  texts "
        << totals.texts << " of " << totals.textBytes << " bytes, and " << totals.whiteSpaces
        << " of white space only\n";
}

void printOutline(std::ostream& out, const Outline& outline) {
    TreePrinter printer(out);
    printer.printChildren(outline.top(), 1);
    if (outline.nodeCount() > printer.lines()) {
        out << "  ... and " << outline.nodeCount() - printer.lines() << " lines more\n";
    }
}

std::string onOneLine(const std::string& text) {
    static const char digits[] = "0123456789ABCDEF";
    std::string line;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            line.append("\\x").append(1, digits[byte >> 4]).append(1, digits[byte & 15]);
        } else {
            line += c;
        }
    }
    return line;
}
