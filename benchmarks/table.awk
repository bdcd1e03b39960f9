# The rows that the benchmarks print, as two tables: ratios, and growth over the size. Columns are as wide as their widest
# cell. Set "markdown" for Markdown.
function print_row(kind, row,    column, line, cell, pad) {
    line = markdown ? "|" : ""
    for (column = 1; column <= columns[kind]; ++column) {
        cell = cells[kind, row, column]
        pad = sprintf("%" (width[kind, column] - length(cell)) "s", "")
        cell = column < 3 ? cell pad : pad cell
        line = line (markdown ? " " cell " |" : cell "  ")
    }
    sub(/ +$/, "", line)
    print line
}
function enter(kind, row, column, cell) {
    cells[kind, row, column] = cell
    if (length(cell) > width[kind, column])
        width[kind, column] = length(cell)
    if (column > columns[kind])
        columns[kind] = column
}
BEGIN {
    titles = split("Family|Operation|Size|Baseline|Ours|Ratio", title, "|")
    for (i = 1; i <= titles; ++i)
        enter("ratio", 0, i, title[i])
    titles = split("Family|Operation|Sizes|Factor|Baseline grows|Ours grows", title, "|")
    for (i = 1; i <= titles; ++i)
        enter("growth", 0, i, title[i])
}
$1 == "ratio" || $1 == "growth" {
    row = ++rows[$1]
    for (i = 2; i <= NF; ++i)
        enter($1, row, i - 1, $i)
}
END {
    kinds = split("ratio growth", kind, " ")
    for (k = 1; k <= kinds; ++k) {
        if (k > 1)
            print ""
        print_row(kind[k], 0)
        if (markdown) {
            line = "|"
            for (i = 1; i <= columns[kind[k]]; ++i)
                line = line (i < 3 ? " --- |" : " ---: |")
            print line
        }
        for (row = 1; row <= rows[kind[k]]; ++row)
            print_row(kind[k], row)
    }
}
