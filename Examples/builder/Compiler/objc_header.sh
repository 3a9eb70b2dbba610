# Writes the declarations of a source's Subs: objc_header.sh SOURCE TARGET
sed -n 's/^ *Sub \([A-Za-z]*\).*$/void \1(void);/p' "$1" | grep -v ' Main(' >"$2"
[ -s "$2" ] || echo '/* no Subs but Main */' >"$2"
