# Lists the one-token faults that scripts/mutation.sh may put into a C++ source, one a line:
#
#   line TAB offset TAB length TAB kind TAB replacement
#
# The replacement, which may be empty, takes the place of `length` bytes at `offset` (the first byte is 1). Leaves
# comments, texts, characters, preprocessor lines and code for Windows alone. Expects a source as clang-format leaves
# it: there an operator between two operands has a blank on either side, and a pointer or a template has not.

BEGIN {
    # What a token becomes; alternatives are separated by a blank.
    faults("relation", "<", "<= >="); faults("relation", "<=", "< >")
    faults("relation", ">", ">= <="); faults("relation", ">=", "> <")
    faults("relation", "==", "!=");   faults("relation", "!=", "==")
    faults("arithmetic", "+", "-");   faults("arithmetic", "-", "+")
    faults("arithmetic", "*", "/");   faults("arithmetic", "/", "*");  faults("arithmetic", "%", "*")
    faults("arithmetic", "+=", "-="); faults("arithmetic", "-=", "+=")
    faults("arithmetic", "*=", "/="); faults("arithmetic", "/=", "*=")
    faults("arithmetic", "<<", ">>"); faults("arithmetic", ">>", "<<")
    faults("arithmetic", "&", "|");   faults("arithmetic", "|", "&")
    faults("arithmetic", "|=", "&="); faults("arithmetic", "&=", "|=")
    faults("logic", "&&", "||");      faults("logic", "||", "&&")

    skipped = "^(//[^\n]*|/\\*([^*]|\\*+[^*/])*\\*+/|\"([^\"\\\\\n]|\\\\.)*\"|'([^'\\\\\n]|\\\\.)+'|#([^\n\\\\]|\\\\\n|\\\\[^\n])*)"
    blank = "^[ \t\r\n]+"
    word = "^[A-Za-z_][A-Za-z0-9_]*"
    number = "^[0-9]([0-9A-Za-z_.']|[eE][+-])*"
    operator = "^(<<=|>>=|<=>|->|::|\\+\\+|--|&&|\\|\\||==|!=|<=|>=|<<|>>|[-+*/%&|^]=|.)"

    # Without these the source does not compile, or means the same.
    declares = "^(auto|class|const|constexpr|enum|extern|friend|namespace|static|static_assert|struct|template|using)$"
    hasHead = "^(catch|for|if|switch|while)$"
    isLabel = "^(case|default|private|protected|public)$"
}

{ text = text $0 "\n" }

END {
    position = 1
    line = 1
    while (position <= length(text)) {
        rest = substr(text, position, 2000)
        if (take(blank)) continue
        if (take(skipped)) {
            if (found == "#ifdef _WIN32") step(windowsOnly())
            continue
        }
        if (matches(number)) onNumber()
        else if (matches(word)) onWord()
        else if (matches(operator)) onOperator()
        step(found)
    }
}

function faults(kind, token, replacements) {
    kindOf[token] = kind
    replacementsOf[token] = replacements
}

function matches(pattern) {
    if (!match(rest, pattern)) return 0
    found = substr(rest, 1, RLENGTH)
    return 1
}

# Skips code that only Windows compiles, up to the directive that ends it.
function windowsOnly(    code) {
    code = substr(text, position)
    return substr(code, 1, index(code, "\n#"))
}

function take(pattern) {
    if (!matches(pattern)) return 0
    step(found)
    return 1
}

function step(token) {
    position += length(token)
    line += gsub(/\n/, "\n", token)
}

function fault(kind, atLine, offset, size, replacement) {
    printf "%d\t%d\t%d\t%s\t%s\n", atLine, offset, size, kind, replacement
}

function here(kind, replacement) {
    fault(kind, line, position, length(found), replacement)
}

function onNumber() {
    beginStatement()
    if (found !~ /^(0|[1-9][0-9]*)$/) {
        here("constant", "(" found " + 1)")
        here("constant", "(" found " - 1)")
        return
    }
    here("constant", found + 1)
    if (found > 0) here("constant", found - 1)
}

function onWord() {
    # After a block a word begins the next statement.
    if (blockClosed) start = holdsStatements = 0
    blockClosed = 0
    if (found == "true") here("logic", "false")
    if (found == "false") here("logic", "true")
    if (start || found == "else" || found == "do") return
    beginStatement()
    if (found ~ hasHead) head = 1
    if (found ~ isLabel) label = 1
    if (found ~ declares) declaration = 1
}

function onOperator(    n, i, alternatives) {
    if (found == "!") here("logic", "")
    if (found == "++") here("arithmetic", "--")
    if (found == "--") here("arithmetic", "++")
    if (found in kindOf && substr(text, position - 1, 1) == " " && substr(text, position + length(found), 1) ~ /[ \n]/) {
        n = split(replacementsOf[found], alternatives, " ")
        for (i = 1; i <= n; ++i) here(kindOf[found], alternatives[i])
    }
    followStatement()
}

# Drops a whole statement: the text between two semicolons or braces, after labels and after the head of an `if` or the
# like. To know where it ends, we count the open brackets, and remember the statement around each open brace.

function beginStatement() {
    if (start) return
    start = position
    startLine = line
    head = label = declaration = 0
}

function followStatement() {
    if (found == "{") return openBlock()
    if (found == "}") return closeBlock()
    if (found == ";" && !brackets) return endStatement()
    blockClosed = 0
    if (found == ":" && label) { start = 0; return }
    beginStatement()
    if (found ~ /[(\[]/) ++brackets
    if (found ~ /[)\]]/ && --brackets == 0 && head) start = 0
}

function endStatement() {
    if (start && !declaration && !holdsStatements) fault("dropped", startLine, start, position + 1 - start, "{}")
    start = blockClosed = holdsStatements = 0
    heldStatement = 1
}

function openBlock() {
    ++depth
    outerStart[depth] = start
    outerLine[depth] = startLine
    outerBrackets[depth] = brackets
    outerDeclaration[depth] = declaration
    outerHeld[depth] = heldStatement
    start = brackets = heldStatement = 0
}

function closeBlock() {
    # A function, a class or a lambda outside of brackets is no single statement.
    holdsStatements = heldStatement && !outerBrackets[depth]
    start = outerStart[depth]
    startLine = outerLine[depth]
    brackets = outerBrackets[depth]
    declaration = outerDeclaration[depth]
    heldStatement = outerHeld[depth]
    blockClosed = !brackets
    head = label = 0
    --depth
}
