# Compiles what the translator wrote: objc_compile.sh SOURCE TARGET
exec "${CC:-cc}" -c "${2%.o}.c" -o "$2"
