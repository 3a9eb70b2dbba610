# Links all of a folder's objects: linker.sh FOLDER
exec "${CC:-cc}" "$1"/build/*.o -o "$1/build/program"
