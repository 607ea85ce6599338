#include <nolk/core/regex/RegexTokenLinker.h>

#include <nolk/core/regex/RegexStateNode.h>

namespace nolk {

RegexTokenLinker::Anchors RegexTokenLinker::run(std::uint32_t end) {
    dropStrayAlternations();
    joinSetAlternations();
    collectTargets();
    linkTokens();
    addEnds(end);
    numberNodes();
    findStartAnchors();
    findEndAnchors();
    return anchors_;
}

// ---------------------------------------------------------------- alternations

// The scans over the characters don't know sets, and take the second of two backslashes for one
// that escapes, so a `|` may have no alternation, and an alternation no end. Those go, and so does
// an alternation of nothing but anchors: what they separated then follows one upon the other.
void RegexTokenLinker::dropStrayAlternations() {
    RegexArray<Scope, 16> scopes;
    RegexArray<std::uint32_t, 192> owners;  // the opening token of a pipe's or end's alternation
    RegexArray<std::uint8_t, 192> isWhole;
    owners.fill(tokens_.size(), regexNone);
    isWhole.fill(tokens_.size(), false);
    scopes.push({regexNone, false});
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        Scope& scope = scopes.back();
        const Type type = tokens_[i].type;
        if (type == Type::alternationOpen && scope.alternation == regexNone) {
            scope = {i, false};
        } else if (type == Type::pipe) {
            owners[i] = scope.alternation;
        } else if (type == Type::alternationClose && scope.alternation != regexNone) {
            owners[i] = scope.alternation;
            isWhole[scope.alternation] = scope.hasNode;
            scope.alternation = regexNone;
        } else if (type == Type::groupOpen) {
            scope.hasNode = true;
            scopes.push({regexNone, false});
        } else if (type == Type::groupClose) {
            scopes.pop();
        } else if (isRegexAtom(type)) {
            scope.hasNode = true;
        }
    }
    std::uint32_t kept = 0;
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        const Type type = tokens_[i].type;
        const bool isPart = type == Type::pipe || type == Type::alternationClose;
        const bool isStray = isPart ? owners[i] == regexNone || isWhole[owners[i]] == 0
                                    : type == Type::alternationOpen && isWhole[i] == 0;
        if (!isStray) {
            tokens_[kept++] = tokens_[i];
        }
    }
    tokens_.truncate(kept);
}

// The end of an alternation whose alternatives are sets and single characters; else regexNone.
std::uint32_t RegexTokenLinker::setAlternationEnd(std::uint32_t open) const {
    for (std::uint32_t i = open + 1;; i += 2) {
        const RegexToken& token = tokens_[i];
        const bool isSingle =
            token.type == Type::bracketSet || (token.type == Type::literals && token.length == 1);
        if (!isSingle) {
            return regexNone;
        }
        if (tokens_[i + 1].type != Type::pipe) {
            const bool hasPipe = i > open + 1;
            return hasPipe && tokens_[i + 1].type == Type::alternationClose ? i + 1 : regexNone;
        }
    }
}

void RegexTokenLinker::joinSetAlternations() {
    for (std::uint32_t open = 0; open < tokens_.size(); ++open) {
        if (tokens_[open].type != Type::alternationOpen) {
            continue;
        }
        const std::uint32_t close = setAlternationEnd(open);
        if (close == regexNone) {
            continue;
        }
        tokens_[open].type = Type::setAlternationOpen;
        tokens_[close].type = Type::setAlternationClose;
        for (std::uint32_t i = open + 2; i < close; i += 2) {
            tokens_[i].type = Type::setAlternationPipe;
        }
    }
}

// ---------------------------------------------------------------- links

// For the end of each alternation the first atom behind it. Ends that wait at a `|` go on waiting,
// and are then served along with the next end that finds its atom.
void RegexTokenLinker::collectTargets() {
    std::uint32_t waiting = 0;
    bool isPending = false;
    const auto serve = [&](std::uint32_t target) {
        for (; waiting > 0; --waiting) {
            targets_.push(static_cast<std::int32_t>(target));
        }
        isPending = false;
    };
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        const Type type = tokens_[i].type;
        if (type == Type::alternationClose) {
            ++waiting;
            isPending = true;
        } else if (type == Type::pipe) {
            isPending = false;
        } else if (isPending && (type == Type::groupOpen || isRegexAtom(type))) {
            serve(i);
        }
    }
    serve(tokens_.size());
}

// Backward. What ends an alternative goes on behind the alternation, whose targets are on a stack,
// and so does what ends the group that ends an alternative; all else goes on at the next token.
void RegexTokenLinker::linkTokens() {
    RegexArray<std::int32_t, 16> around;  // targets of the alternations that we are in
    groups_.clear();                      // where the groups that we are in go on
    std::uint32_t left = targets_.size();
    bool isLast = false;
    for (std::uint32_t i = tokens_.size(); i-- > 0;) {
        RegexToken& token = tokens_[i];
        const auto behind = static_cast<std::int32_t>(i + 1);
        const std::int32_t next = isLast ? around.back() : behind;
        token.next = behind;
        switch (token.type) {
            case Type::alternationClose:
                around.push(targets_[--left]);
                isLast = true;
                break;
            case Type::pipe:
                isLast = true;
                break;
            case Type::alternationOpen:
                around.pop();
                isLast = false;
                break;
            case Type::groupClose:
                groups_.push(static_cast<std::uint32_t>(next));
                break;
            case Type::groupOpen:
                token.after = static_cast<std::int32_t>(groups_.back());
                groups_.pop();
                token.next = next;  // behind an empty group at the end of an alternative, too
                isLast = false;
                break;
            case Type::setAlternationClose:
                linkSetAlternation(i, next);
                break;
            case Type::setAlternationOpen:
                isLast = false;
                token.next = token.after;
                token.after = -1;
                break;
            case Type::setAlternationPipe:
                break;
            default:
                if (isRegexAtom(token.type)) {
                    token.next = next;
                    isLast = false;
                }
        }
    }
}

// The node of a set alternation is its opening token's.
void RegexTokenLinker::linkSetAlternation(std::uint32_t close, std::int32_t next) {
    std::uint32_t open = close;
    while (tokens_[open].type != Type::setAlternationOpen) {
        --open;
    }
    tokens_[open].after = next;
}

// Two of them, so that what stands behind a token can always be asked.
void RegexTokenLinker::addEnds(std::uint32_t end) {
    const RegexToken token{Type::end, false, end, 0, -1, -1, -1, 0};
    tokens_.push(token);
    tokens_.push(token);
}

// The number of the node that each token becomes, or of the first one behind it; and what encloses
// it.
void RegexTokenLinker::numberNodes() {
    std::uint32_t count = 0;
    bool isInSet = false;
    groups_.clear();
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        RegexToken& token = tokens_[i];
        token.node = count;
        if (token.type == Type::groupClose) {
            groups_.pop();
        }
        if (token.type != Type::alternationOpen && token.type != Type::alternationClose) {
            token.enclosing = groups_.empty() ? -1 : static_cast<std::int32_t>(groups_.back());
        }
        if (token.type == Type::groupOpen) {
            groups_.push(i);
        }
        const bool isNode = token.type == Type::groupOpen || token.type == Type::alternationOpen ||
                            token.type == Type::setAlternationOpen ||
                            (isRegexAtom(token.type) && !isInSet);
        count += isNode;
        isInSet = token.type == Type::setAlternationOpen ||
                  (isInSet && token.type != Type::setAlternationClose);
    }
}

// ---------------------------------------------------------------- anchors

// A `^` in front of the first alternation is the pattern's own. A `(` is nothing in front of it.
void RegexTokenLinker::findStartAnchors() {
    bool hasAtom = false;
    for (const RegexToken& token : tokens_) {
        if (token.type == Type::alternationOpen) {
            return;
        }
        hasAtom |= isRegexAtom(token.type);
        if (token.type == Type::startAnchor) {
            anchors_.isStartAnchored = true;
            anchors_.neverMatches |= hasAtom;
        }
    }
}

// Backward, with a stack that tells for each alternative around whether an atom lies behind.
void RegexTokenLinker::findEndAnchors() {
    groups_.fill(1, false);
    for (std::uint32_t i = tokens_.size(); i-- > 0;) {
        const Type type = tokens_[i].type;
        if (type == Type::alternationClose) {
            groups_.push(false);
        } else if (type == Type::pipe) {
            groups_.back() = false;
        } else if (type == Type::alternationOpen) {
            groups_.pop();
            groups_.back() = true;
        } else if (isRegexAtom(type)) {
            groups_.back() = true;
        } else if (type == Type::endAnchor) {
            anchors_.neverMatches |= groups_.back() != 0;
            anchors_.isEndAnchored |= groups_.size() == 1;
            markEndAnchoredAtom(i);
        }
    }
}

// The atom or the whole group in front of a `$`, in the same alternative.
void RegexTokenLinker::markEndAnchoredAtom(std::uint32_t anchor) {
    std::uint32_t depth = 0;
    for (std::uint32_t i = anchor; i-- > 0;) {
        RegexToken& token = tokens_[i];
        if (token.type == Type::groupClose) {
            ++depth;
        } else if (token.type == Type::groupOpen) {
            if (depth <= 1) {
                token.isEndAnchored = depth == 1;
                return;
            }
            --depth;
        } else if (depth == 0 && isRegexAtom(token.type)) {
            token.isEndAnchored = true;
            return;
        } else if (depth == 0 &&
                   (token.type == Type::pipe || token.type == Type::alternationOpen)) {
            return;
        }
    }
}

}  // namespace nolk
