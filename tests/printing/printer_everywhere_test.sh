#!/usr/bin/env bash
# The words with a dollar sign are those of ipptool.
# shellcheck disable=SC2016
# Examines the printers of both shipped descriptions with ipptool: what IPP Everywhere
# (PWG 5100.14) asks of a printer's attributes, and of each group of them, and every
# test file of the print scheduler that is for printers of this kind. ipptool may
# return 0 in spite of a failed test, so its lines are counted.
#
# usage: printer_everywhere_test.sh SOURCE_DIR BUILD_DIR [all]
#
# Without "all", of the files only those that print nothing.
set -eu

source=$(realpath "$1")
build=$(realpath "$2")
extent=${3:-}
# shellcheck source=tests/printing/printer.sh
. "$source/tests/printing/printer.sh"
beginPrinterTest
command -v ipptool >/dev/null || { echo "ipptool is missing: apt-get install cups-ipp-utils"; exit 1; }
cd "$folder"
cp -- "$source/tests/printing/two_pages.ps" page.ps

# What each printer has, by the group that it is asked for with. Used by their names.
# shellcheck disable=SC2034
description=(charset-configured charset-supported color-supported compression-supported
  document-format-default document-format-supported document-password-supported
  generated-natural-language-supported identify-actions-default identify-actions-supported
  ipp-features-supported ipp-versions-supported job-constraints-supported
  job-creation-attributes-supported job-ids-supported job-resolvers-supported
  multiple-document-jobs-supported multiple-operation-time-out
  multiple-operation-time-out-action natural-language-configured operations-supported
  pages-per-minute pdl-override-supported preferred-attributes-supported
  printer-config-change-date-time printer-config-change-time printer-current-time
  printer-geo-location printer-get-attributes-supported printer-icons printer-info
  printer-is-accepting-jobs printer-location printer-make-and-model printer-more-info
  printer-name printer-organization printer-organizational-unit printer-state
  printer-state-change-date-time printer-state-change-time printer-state-message
  printer-state-reasons printer-supply printer-supply-description printer-supply-info-uri
  printer-up-time printer-uri-supported printer-uuid pwg-raster-document-resolution-supported
  pwg-raster-document-sheet-back pwg-raster-document-type-supported queued-job-count
  uri-authentication-supported uri-security-supported which-jobs-supported)
# shellcheck disable=SC2034
template=(copies-default copies-supported finishings-default finishings-supported
  media-bottom-margin-supported media-col-default media-col-ready media-col-supported
  media-default media-left-margin-supported media-ready media-right-margin-supported
  media-size-supported media-source-supported media-supported media-top-margin-supported
  media-type-supported orientation-requested-default orientation-requested-supported
  output-bin-default output-bin-supported overrides-supported page-ranges-supported
  print-color-mode-default print-color-mode-supported print-content-optimize-default
  print-content-optimize-supported print-quality-default print-quality-supported
  print-rendering-intent-default print-rendering-intent-supported printer-resolution-default
  printer-resolution-supported sides-default sides-supported)

# begin NAME OPERATION [LINE...]: the head of one test.
begin() {
  printf '{\nNAME "%s"\nVERSION 2.0\nOPERATION %s\nGROUP operation-attributes-tag\n' "$1" "$2"
  shift 2
  if [ "${1:-}" = bare ]; then return; fi
  printf 'ATTR charset attributes-charset utf-8\nATTR naturalLanguage attributes-natural-language en\n'
  printf 'ATTR uri printer-uri $uri\nATTR name requesting-user-name $user\n'
  if [ $# -gt 0 ]; then printf '%s\n' "$@"; fi
}
expect() { printf 'EXPECT %s\n' "$@"; }
end() { printf 'STATUS %s\n}\n' "$@"; }

# A request that breaks a rule is refused, and gets nothing.
refuse() {
  local name=$1 status=$2
  shift 2
  begin "$name" Get-Printer-Attributes bare
  if [ $# -gt 0 ]; then printf '%s\n' "$@"; fi
  expect '!printer-uri-supported'
  end "$status"
}

writeRefusals() {
  local charset='ATTR charset attributes-charset utf-8'
  local language='ATTR naturalLanguage attributes-natural-language en'
  local uri='ATTR uri printer-uri $uri'
  refuse 'the request number 0' client-error-bad-request 'REQUEST-ID 0' "$charset" "$language" "$uri"
  refuse 'no attributes' client-error-bad-request
  refuse 'no language' client-error-bad-request "$charset" "$uri"
  refuse 'no charset' client-error-bad-request "$language" "$uri"
  refuse 'the language first' client-error-bad-request "$language" "$charset" "$uri"
  refuse 'no printer' client-error-bad-request "$charset" "$language"
  begin 'no user, which is allowed' Get-Printer-Attributes bare
  printf '%s\n' "$charset" "$language" "$uri"
  expect 'printer-uri-supported OF-TYPE uri IN-GROUP printer-attributes-tag' printer-name
  end successful-ok
  refuse 'version 0.0' server-error-version-not-supported 'VERSION 0.0' "$charset" "$language" "$uri"
}

# group NAMES WANTED...: asks for these names; WANTED is "description", "template",
# "database" or nothing, and the other groups must not come.
group() {
  local names=$1 name mark
  shift
  begin "requested-attributes=$names" Get-Printer-Attributes "ATTR keyword requested-attributes $names"
  for mark in description template database; do
    local -n members=$mark
    case " $* " in
      *" $mark "*) expect "${members[@]}" ;;
      *) for name in "${members[@]}"; do expect "!$name"; done ;;
    esac
  done
  end successful-ok
}
# Used by its name.
# shellcheck disable=SC2034
database=(media-col-database)

operations=(0x0002 0x0004 0x0005 0x0006 0x0008 0x0009 0x000a 0x000b 0x0039 0x003b 0x003c)
length='([1-9][0-9]*(\.[0-9]*[1-9])?|0\.[0-9]*[1-9])'
size="(custom|na|asme|roc|oe|roll)_[a-z0-9][-a-z0-9]*_${length}x${length}in"
size+="|(custom|iso|jis|jpn|prc|om|roll)_[a-z0-9][-a-z0-9]*_${length}x${length}mm"

# What a printer says of its supplies, in the order of the printer's choice.
supply='(type|class|unit|colorantrole|colorantname)=[A-Za-z]+;'
supply+='|(index|markerindex|colorantindex|coloranttonality)=[0-9]+;|(maxcapacity|level)=-?[0-9]+;'

# The kinds and values of the attributes.
writeAttributes() {
  local code name
  begin 'the group of the attributes' Get-Printer-Attributes
  for name in "${description[@]}" "${template[@]}"; do
    expect "$name IN-GROUP printer-attributes-tag"
  done
  end successful-ok
  begin 'all attributes' Get-Printer-Attributes
  for code in "${operations[@]}"; do expect "operations-supported WITH-VALUE $code"; done
  expect '!media-col-database' \
    'charset-configured OF-TYPE charset COUNT 1' 'charset-supported OF-TYPE charset WITH-VALUE utf-8' \
    'color-supported OF-TYPE boolean COUNT 1' 'color-supported WITH-VALUE true DEFINE-MATCH HAS_COLOR' \
    'pages-per-minute-color OF-TYPE integer COUNT 1 IF-DEFINED HAS_COLOR' \
    '!pages-per-minute-color IF-NOT-DEFINED HAS_COLOR' 'compression-supported OF-TYPE keyword WITH-VALUE none' \
    'document-format-default OF-TYPE mimeMediaType COUNT 1' \
    'document-format-supported OF-TYPE mimeMediaType WITH-VALUE "image/pwg-raster"' \
    'document-format-supported WITH-VALUE "image/jpeg"' \
    'document-format-supported WITH-VALUE "application/pdf"' \
    'document-password-supported OF-TYPE integer COUNT 1' \
    'generated-natural-language-supported OF-TYPE naturalLanguage' \
    'identify-actions-default OF-TYPE keyword WITH-ALL-VALUES "/^(display|flash|sound|speak)$$/"' \
    'identify-actions-supported OF-TYPE keyword WITH-ALL-VALUES "/^(display|flash|sound|speak)$$/"' \
    'ipp-features-supported OF-TYPE keyword WITH-VALUE ipp-everywhere' \
    'ipp-versions-supported OF-TYPE keyword WITH-VALUE 2.0' \
    'job-constraints-supported OF-TYPE collection' 'job-resolvers-supported OF-TYPE collection' \
    'job-creation-attributes-supported OF-TYPE keyword WITH-VALUE media' \
    'job-creation-attributes-supported WITH-VALUE print-color-mode' \
    'job-password-supported OF-TYPE integer COUNT 1 DEFINE-MATCH TAKES_PASSWORD' \
    'job-password-encryption-supported OF-TYPE keyword WITH-VALUE none IF-DEFINED TAKES_PASSWORD' \
    '!job-password-encryption-supported IF-NOT-DEFINED TAKES_PASSWORD' \
    'job-ids-supported OF-TYPE boolean COUNT 1 WITH-VALUE true' \
    'multiple-document-jobs-supported OF-TYPE boolean COUNT 1' \
    'multiple-operation-time-out OF-TYPE integer COUNT 1 WITH-VALUE >0' \
    'multiple-operation-time-out-action OF-TYPE keyword COUNT 1 WITH-VALUE "/^(abort-job|hold-job|process-job)$$/"' \
    'natural-language-configured OF-TYPE naturalLanguage COUNT 1' 'pages-per-minute OF-TYPE integer COUNT 1' \
    'pdl-override-supported OF-TYPE keyword COUNT 1' 'preferred-attributes-supported OF-TYPE boolean COUNT 1' \
    'printer-config-change-date-time OF-TYPE dateTime COUNT 1' \
    'printer-config-change-time OF-TYPE integer COUNT 1 WITH-VALUE >-1' \
    'printer-current-time OF-TYPE dateTime COUNT 1' 'printer-geo-location OF-TYPE uri|unknown COUNT 1' \
    'printer-get-attributes-supported OF-TYPE keyword WITH-VALUE document-format' \
    'printer-icons OF-TYPE uri WITH-ALL-VALUES "/^https?:.+$$/"' 'printer-icons WITH-ALL-HOSTNAMES "$hostname"' \
    'printer-info OF-TYPE text COUNT 1 WITH-VALUE "/^.{0,127}$$/"' \
    'printer-is-accepting-jobs OF-TYPE boolean COUNT 1' \
    'printer-location OF-TYPE text COUNT 1 WITH-VALUE "/^.{0,127}$$/"' \
    'printer-make-and-model OF-TYPE text COUNT 1 WITH-VALUE "/^.{0,127}$$/"' \
    'printer-more-info OF-TYPE uri COUNT 1 WITH-VALUE "/^https?:.+$$/"' \
    'printer-name OF-TYPE name COUNT 1 WITH-VALUE "/^.{0,127}$$/"' \
    'printer-organization OF-TYPE text' 'printer-organizational-unit OF-TYPE text' \
    'printer-state OF-TYPE enum COUNT 1 WITH-VALUE 3,4,5' \
    'printer-state-change-date-time OF-TYPE dateTime COUNT 1' \
    'printer-state-change-time OF-TYPE integer COUNT 1 WITH-VALUE >-1' 'printer-state-message OF-TYPE text' \
    'printer-state-reasons OF-TYPE keyword' \
    "printer-supply OF-TYPE octetString WITH-ALL-VALUES \"/^($supply)+\$\$/\"" \
    'printer-supply-description OF-TYPE text SAME-COUNT-AS printer-supply' \
    'printer-supply-info-uri OF-TYPE uri COUNT 1 WITH-VALUE "/^https?:.+$$/"' \
    'printer-supply-info-uri WITH-HOSTNAME "$hostname"' 'printer-up-time OF-TYPE integer COUNT 1 WITH-VALUE >0' \
    'printer-uri-supported OF-TYPE uri SAME-COUNT-AS uri-security-supported WITH-ALL-VALUES "/^ipps?:.+$$/"' \
    'printer-uuid OF-TYPE uri COUNT 1 WITH-VALUE "/^urn:uuid:[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}$$/"' \
    'pwg-raster-document-resolution-supported OF-TYPE resolution' \
    'pwg-raster-document-sheet-back OF-TYPE keyword COUNT 1 WITH-VALUE "/^(flipped|manual-tumble|normal|rotated)$$/"' \
    'pwg-raster-document-type-supported OF-TYPE keyword WITH-VALUE black_1' \
    'pwg-raster-document-type-supported WITH-VALUE sgray_8' 'queued-job-count OF-TYPE integer COUNT 1' \
    'uri-authentication-supported OF-TYPE keyword SAME-COUNT-AS uri-security-supported' \
    'which-jobs-supported OF-TYPE keyword WITH-VALUE completed' 'which-jobs-supported WITH-VALUE not-completed'
  writeTemplates
  end successful-ok
}

writeTemplates() {
  local name
  expect 'copies-default OF-TYPE integer COUNT 1 WITH-VALUE >0' 'copies-supported OF-TYPE rangeOfInteger'
  for name in database default ready; do
    expect "finishings-col-$name OF-TYPE collection" \
      "finishings-col-$name/finishing-template OF-TYPE keyword|name"
  done
  expect 'finishing-template-supported OF-TYPE keyword|name WITH-VALUE none' \
    'finishings-col-supported OF-TYPE keyword WITH-VALUE finishing-template' \
    'finishings-default OF-TYPE enum WITH-VALUE-FROM finishings-supported' \
    'finishings-ready OF-TYPE enum WITH-VALUE-FROM finishings-supported' \
    'finishings-supported OF-TYPE enum WITH-VALUE 3'
  for name in bottom left right top; do
    expect "media-$name-margin-supported OF-TYPE integer WITH-ALL-VALUES >-1"
  done
  for name in default ready; do
    printf 'EXPECT-ALL media-col-%s/%s\n' "$name" "media-size OF-TYPE collection COUNT 1" \
      "$name" "media-size/x-dimension OF-TYPE integer COUNT 1 WITH-VALUE >0" \
      "$name" "media-size/y-dimension OF-TYPE integer COUNT 1 WITH-VALUE >0" \
      "$name" "media-source OF-TYPE keyword|name COUNT 1" "$name" "media-type OF-TYPE keyword|name COUNT 1"
  done
  printf 'EXPECT-ALL media-size-supported/%s-dimension OF-TYPE integer|rangeOfInteger COUNT 1\n' x y
  for name in media-size media-source media-type; do expect "media-col-supported WITH-VALUE $name"; done
  expect "media-default OF-TYPE keyword COUNT 1 WITH-VALUE \"/^($size)\$\$/\"" \
    "media-ready OF-TYPE keyword WITH-ALL-VALUES \"/^($size)\$\$/\"" \
    "media-supported OF-TYPE keyword WITH-ALL-VALUES \"/^($size)\$\$/\"" \
    'media-size-supported OF-TYPE collection' 'media-source-supported OF-TYPE keyword|name' \
    'media-type-supported OF-TYPE keyword|name' 'overrides-supported OF-TYPE keyword WITH-VALUE pages' \
    'overrides-supported WITH-VALUE document-numbers' \
    'page-ranges-supported OF-TYPE boolean COUNT 1 WITH-VALUE true' \
    'print-color-mode-supported WITH-ALL-VALUES "/^(auto|auto-monochrome|bi-level|color|monochrome)$$/"' \
    'print-content-optimize-supported WITH-ALL-VALUES "/^(auto|graphic|photo|text|text-and-graphic)$$/"' \
    'print-quality-supported OF-TYPE enum WITH-ALL-VALUES 3,4,5' \
    'printer-resolution-supported OF-TYPE resolution' \
    'sides-supported WITH-ALL-VALUES "/^(one-sided|two-sided-long-edge|two-sided-short-edge)$$/"'
  for name in orientation-requested output-bin print-color-mode print-content-optimize print-quality \
    print-rendering-intent printer-resolution sides; do
    expect "$name-default COUNT 1 WITH-VALUE-FROM $name-supported"
  done
}

# All values by name, and a job with all of the defaults.
writeRest() {
  begin 'media-col-database' Get-Printer-Attributes \
    'ATTR keyword requested-attributes media-col-database,printer-uri-supported'
  expect 'media-col-database OF-TYPE collection' '!printer-name' 'printer-uri-supported OF-TYPE uri'
  printf 'EXPECT-ALL media-col-database/%s\n' 'media-size OF-TYPE collection COUNT 1' \
    'media-size/x-dimension OF-TYPE integer|rangeOfInteger COUNT 1' \
    'media-size/y-dimension OF-TYPE integer|rangeOfInteger COUNT 1'
  end successful-ok
  local name kind
  begin 'the defaults' Get-Printer-Attributes
  for name in media print-color-mode print-content-optimize print-rendering-intent print-quality \
    printer-resolution; do
    expect "$name-default DEFINE-VALUE $name"
  done
  end successful-ok
  begin 'a job with the defaults' Validate-Job 'ATTR boolean ipp-attribute-fidelity true' \
    'ATTR name job-name defaults' 'ATTR name document-name page' 'ATTR keyword compression none' \
    'ATTR mimeMediaType document-format image/pwg-raster' 'GROUP job-attributes-tag'
  for name in media print-color-mode print-content-optimize print-rendering-intent; do
    printf 'ATTR keyword %s "$%s"\n' "$name" "$name"
  done
  printf 'ATTR enum print-quality $print-quality\nATTR resolution printer-resolution $printer-resolution\n'
  printf 'ATTR keyword sides one-sided\n'
  end successful-ok
  for kind in display sound; do
    begin "identified by $kind" Identify-Printer "ATTR keyword identify-actions $kind" 'ATTR text message Hello'
    end successful-ok
  done
}

{
  writeRefusals
  group all description template
  group all,media-col-database description template database
  group none
  group media-col-database database
  group printer-description description
  group job-template template
  group printer-description,job-template description template
  writeAttributes
  writeRest
} >everywhere.test

# Those of the scheduler that are for printers; the number of failed tests that each
# must have: one of get-printer-attributes-suite asks for "all" and expects one attribute only,
# which no printer can pass.
declare -A files=([get-completed-jobs]=0 [get-job-template-attributes]=0 [get-jobs]=0
  [get-printer-attributes]=0 [get-printer-attributes-suite]=1
  [get-printer-description-attributes]=0 [identify-printer]=0 [identify-printer-display]=0
  [identify-printer-multiple]=0 [ipp-backend]=0 [validate-job]=0)
if [ "$extent" = all ]; then
  for name in ipp-1.1 ipp-2.0 ipp-everywhere create-job create-job-format create-job-sheets fax-job \
    print-job print-job-and-wait print-job-hold print-job-letter print-job-manual \
    print-job-media-col print-job-password; do
    files[$name]=0
  done
fi

examine() { # PRINTER TEST NAME FAULTS [LEAST]
  local result=result.${1%/*}.$3 passed faults
  ipptool -I -tf page.ps "ipp://localhost:$printerPort/ipp/print/$1" "$2" >"$result" 2>&1 || :
  passed=$(grep -c '\[PASS\]' "$result" || :)
  faults=$(grep -c '\[FAIL\]' "$result" || :)
  echo "$1: $3: $passed passed, $faults failed"
  if [ "$faults" -eq "$4" ] && [ "$passed" -ge "${5:-1}" ]; then return 0; fi
  grep -A 15 '\[FAIL\]' "$result" || tail -5 "$result"
  return 1
}

startPrinters() {
  startPrinter "$folder" --callbacks "$build/lib/liboffice_routines.so" \
    "office=$source/descriptions/office_laser.xml" "labels=$source/descriptions/label_printer.xml"
}

failed=0
startPrinters
for printer in office labels; do
  # ipptool ends without a word of failure at a test that it cannot read.
  examine "$printer" everywhere.test everywhere 0 "$(grep -c '^NAME' everywhere.test)" || failed=1
done
# A preset's address has some attributes of its own, in place of the printer's.
examine office/handout get-printer-attributes.test preset 0 || failed=1
for name in "${!files[@]}"; do
  # Some leave jobs without documents, for which others would wait.
  if [ "$extent" = all ]; then
    stopPrinter
    rm -rf -- "$folder/spool"
    startPrinters
  fi
  for printer in office labels; do
    examine "$printer" "$name.test" "$name" "${files[$name]}" || failed=1
  done
done
kill -0 "$printerProcess" || { echo "the printer has ended"; failed=1; }
exit "$failed"
