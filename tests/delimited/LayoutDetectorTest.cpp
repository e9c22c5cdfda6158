#include "delimited/layout/LayoutDetector.h"

#include "base/InternationalSettings.h"
#include "delimited/layout/LayoutText.h"

namespace pellam {
namespace {

// What a layout says, in short: separator and decimal mark, lines of headings, units and data,
// time.
std::string brief(const TextLayout& layout) {
    std::string text;
    for (const auto& [key, value] : layoutFacts(layout)) {
        if (key == "separator" || key == "decimal") text += value + ' ';
        if (key == "headings line" || key == "units line" || key == "data line")
            text += value + ' ';
        if (key == "time columns") text += '[' + value + "] ";
        if (key == "time format") text += value;
    }
    return text;
}

std::string namesOf(const TextLayout& layout) {
    std::string text;
    for (std::size_t i = 0; i < layout.names.size(); ++i)
        text += (i > 0 ? "|" : "") + layout.names[i];
    return text;
}

TextLayout detect(const std::string& text, char expected = ',', char decimal = '.') {
    static InternationalSettings settings;
    settings.decimalSeparator = decimal;
    return LayoutDetector(expected, settings).detect(TextSample::ofText(text));
}

TEST(LayoutDetectorTest, TellsTheShapesOfTheWorld) {
    const Table<const char*, const char*, const char*, const char*> files = {
        {"logger with a line of its own, units and statistics",
         "\"TOA\",\"S\",\"L1\",\"123\",\"x\",\"CPU\",\"1\",\"T\"\n"
         "\"TIMESTAMP\",\"RECORD\",\"T_Avg\"\n\"TS\",\"RN\",\"Deg C\"\n\"\",\"\",\"Avg\"\n"
         "\"2020-05-30 19:00:00\",0,24.9\n\"2020-05-30 19:15:00\",1,\"NAN\"\n",
         "comma . 2 3 5 [1] yyyy-MM-dd HH:mm:ss", "TIMESTAMP|RECORD|T_Avg"},
        {"title, running number, month first with halves of the day",
         "\"Plot Title: x\"\n\"#\",\"Date Time, GMT-05:00\",\"Temp, F\"\n"
         "1,03/09/21 11:50:00 AM,20.1\n2,03/09/21 12:00:00 PM,20.2\n",
         "comma . 2 0 3 [2] MM/dd/yy HH:mm:ss a", "#|Date Time, GMT-05:00|Temp, F"},
        {"date and time in two columns, decimal comma",
         "Datum;Uhrzeit;Leistung [kW]\n16.12.2006;17:24:00;4,216\n16.12.2006;17:25:00;5,360\n",
         "semicolon , 1 0 2 [1, 2] dd.MM.yyyy HH:mm:ss", "Datum|Uhrzeit|Leistung [kW]"},
        {"time of day with points",
         "Date;Time;CO;;\n10/03/2004;18.00.00;2,6;;\n23/03/2004;19.00.00;2,0;;\n",
         "semicolon , 1 0 2 [1, 2] dd/MM/yyyy HH.mm.ss", "Date|Time|CO"},
        {"declared separator, number first",
         "sep=;\nID;Time;V;\n1;31/01/2025 16:15:00;4.13;\n2;31/01/2025 16:20:00;4.14;\n",
         "semicolon . 2 0 3 [2] dd/MM/yyyy HH:mm:ss", "ID|Time|V"},
        {"blanks group thousands between semicolons",
         "Time;St 1 A;St 2 B\n2020/01/01 00:00:00;1 234.5;2 345.6\n"
         "2020/01/01 00:01:00;1 235.5;2 346.6\n",
         "semicolon . 1 0 2 [1] yyyy/MM/dd HH:mm:ss", "Time|St 1 A|St 2 B"},
        {"parts between blanks, units, comment marks",
         "#YY MM DD hh mm WSPD\n#yr mo dy hr mn m/s\n2021 03 09 10 00 5.1\n2021 03 09 10 10 5.2\n",
         "blanks . 1 2 3 [1, 2, 3, 4, 5] yyyy M d H m", "YY|MM|DD|hh|mm|WSPD"},
        {"date in letters, clock as a text",
         "Year,m,d,Time,Zone,T\n2021,4,3,00:00,UTC,1.2\n2021,4,3,01:00,UTC,1.1\n",
         "comma . 1 0 2 [1, 2, 3, 4] yyyy M d HH:mm", "Year|m|d|Time|Zone|T"},
        {"parts in two languages",
         "\u5e74/Year,\u6708/Month,\u65e5/Day,V\n2021,4,3,21.5\n2021,4,4,***\n2021,4,5,20\n",
         "comma . 1 0 2 [1, 2, 3] yyyy M d", "\u5e74/Year|\u6708/Month|\u65e5/Day|V"},
        {"order of the date in the line of units",
         "Date,Time,Temp\nMMDDYY,HHMMSS,deg C\n040321,101112,8.5\n040321,102612,8.6\n",
         "comma . 1 2 3 [1, 2] MMddyy HHmmss", "Date|Time|Temp"},
        {"month name, at",
         "Report\nat,V\n\"Apr 3, 2021 @ 10:11:12.000\",1\n\"Apr 3, 2021 @ 10:11:42.000\",2\n",
         "comma . 2 0 3 [1] MMM dd, yyyy @ HH:mm:ss", "at|V"},
        {"day of the year, hours and minutes without zeros",
         "n,Year,DOY,MST,GHI\n0,2018,291,58,1.5\n0,2018,291,59,1.5\n0,2018,291,100,1.6\n",
         "comma . 1 0 2 [2, 3, 4] yyyy DDD HHmm", "n|Year|DOY|MST|GHI"},
        {"epoch behind a preamble, blanks behind commas",
         "7392-354869\nREV: 1.11\nTime (sec), BV (V), T (C)\n1576250220,+3.49,+14.2\n"
         "1576252020,+3.49, +1.8\n",
         "comma . 3 0 4 [1] epoch-s", "Time (sec)|BV (V)|T (C)"},
        {"oscilloscope: settings, no headings",
         "Source,CH1,\nVertical Units,V,\nMode,Detail,\nWaveform Data,\n-9.9e-02,3.4e+00,\n"
         "-9.8e-02,3.4e+00,\n-9.7e-02,3.5e+00,\n-9.6e-02,3.4e+00,\n-9.5e-02,3.4e+00,\n"
         "-9.4e-02,3.4e+00,\n-9.3e-02,3.4e+00,\n",
         "comma . 0 0 5 [1] elapsed-s", ""},
        {"units in brackets and a blank line",
         "Time,Channel A,Channel B\n(ms),(V),(mV)\n\n-0.5,1.5,2\n-0.4,1.6,2\n-0.3,1.5,2\n",
         "comma . 1 2 4 [1] elapsed-ms", "Time|Channel A|Channel B"},
        {"no time",
         "CH1,CH2,Start,Increment,\nVolt,Volt,-6e-02,1e-04\n3.2e-01,1.2e+01,\n"
         "4e-02,1.6e+01,\n3e-01,1.5e+01,\n",
         "comma . 1 2 3 [none] ", "CH1|CH2|Start|Increment"},
        {"headings in two lines",
         "\t\tTemp\tTemp\nDate\tTime\tOut\tIn\n01/03/15\t12:30\t5.2\t20\n13/03/"
         "15\t12:40\t5.3\t20\n",
         "tab . 1 0 3 [1, 2] dd/MM/yy HH:mm", "Date|Time|Temp Out|Temp In"},
        {"interval, currency",
         "\"MTU (CET)\",\"Price\",\"Currency\"\n"
         "\"31.01.2020 00:00 - 31.01.2020 01:00\",\"36.55\",\"EUR\"\n"
         "\"31.01.2020 01:00 - 31.01.2020 02:00\",\"32.32\",\"EUR\"\n",
         "comma . 1 0 2 [1] dd.MM.yyyy HH:mm", "MTU (CET)|Price|Currency"},
        {"row numbers without a heading",
         "\"date\",\"T\",\"RH\"\n\"1\",\"2015-02-04 17:51:00\",23.1,27.2\n"
         "\"2\",\"2015-02-04 17:51:59\",23.1,27.2\n",
         "comma . 1 0 2 [2] yyyy-MM-dd HH:mm:ss", "|date|T|RH"},
        {"bars, German",
         "Zeitstempel|Druck [bar]\n21.03.2021 10:00:00|1,5\n21.03.2021 10:00:01|1,6\n",
         "bar , 1 0 2 [1] dd.MM.yyyy HH:mm:ss", "Zeitstempel|Druck [bar]"},
        {"names of a section, time of day as a number",
         "[names]\nsats time lat\n\n[data]\n008 101258.10 +3.1\n008 101259.20 +3.2\n",
         "blanks . 2 0 5 [2] HHmmss", "sats|time|lat"},
        {"units over some columns of fixed widths",
         "Cambridge\n  yyyy  mm   tmax   rain\n             degC     mm\n  1959   1    4.1    50\n"
         "  1959   2    5.2*   61  Provisional\n  1959   3    7.1    ---\n",
         "blanks . 2 3 4 [1, 2] yyyy M", "yyyy|mm|tmax|rain|"},
        {"units that few know, below full names",
         "station,time,lat,wtmp\n,UTC,degrees_north,m\nb1,2015-01-01T00:00:00Z,36.7,1\n"
         "b1,2015-01-01T00:10:00Z,36.7,NaN\n",
         "comma . 1 2 3 [2] yyyy-MM-ddTHH:mm:ss", "station|time|lat|wtmp"},
        {"symbols between names and units",
         "Time\tForce\nT\tF\ns\tN\n0.0\t1.5\n0.1\t1.6\n0.2\t1.7\n", "tab . 1 3 4 [1] elapsed-s",
         "Time T|Force F"},
        {"keys and values above, codes in the data",
         "Title,x\nStart,2018-01-01\ntime,id,d\n1535000000000000,0E,3A\n1535000000000997,C6,41\n"
         "1535000000001994,12,F0\n1535000000002991,1D,07\n",
         "comma . 3 0 4 [1] epoch-us", "time|id|d"},
        {"a clock that is filled now and then",
         "Run "
         "7\n\nInterval|ms,Utc,V\n100,1457000000000,1\n200,,2\n350,,3\n400,,3\n505,1457000000405,"
         "4\n",
         "comma . 3 0 4 [1] elapsed-ms", "Interval|ms|Utc|V"},
        {"another time of the day far from the date",
         "n,Date,T,Gust,Time of gust\n,2021-6-1,10.5,30,03:34\n,2021-6-2,11.5,30,23:01\n"
         ",2021-6-3,10.5,30,11:12\n,2021-6-4,10.5,30,04:11\n",
         "comma . 1 0 2 [2] yyyy-MM-dd", "n|Date|T|Gust|Time of gust"},
        {"hours behind a date, no headings",
         "2020-01-01,22,5\n2020-01-01,23,5\n2020-01-02,0,4\n2020-01-02,1,4\n",
         "comma . 0 0 1 [1, 2] yyyy-MM-dd H", ""},
        {"hours and minutes with their zone",
         "Data;Hora UTC;T;\n2019/01/01;0000 UTC;1,5;\n2019/01/01;0100 UTC;,5;\n",
         "semicolon , 1 0 2 [1, 2] yyyy/MM/dd HHmm", "Data|Hora UTC|T"},
        {"month, day, year, hour, minute",
         "12 30 2010 23 00 5.1\n12 30 2010 23 30 5.2\n12 31 2010 00 00 5.3\n",
         "blanks . 0 0 1 [3, 1, 2, 4, 5] yyyy M d H m", ""},
        {"a word between all rows",
         "Time,T<br>\n2013-04-01 00:02:00,48.0,\n<br>\n2013-04-01 00:07:00,48.5,\n<br>\n"
         "2013-04-01 00:12:00,48.5,\n<br>\n",
         "comma . 1 0 2 [1] yyyy-MM-dd HH:mm:ss", "Time|T<br>"},
        {"months", "n;Month;A\n1;11/1987;1.5\n2;12/1987;1.6\n3;1/1988;1.7\n",
         "semicolon . 1 0 2 [2] MM/yyyy", "n|Month|A"},
        {"rows out of line below the names",
         "Mast 3\n\nTime,A,B\n2021-03-01 09:00:00,start,by user\nn/a,1.5,2\n"
         "2021-03-01 10:00:00,1,2\n2021-03-01 10:01:00,1,3\n2021-03-01 10:02:00,1,4\n",
         "comma . 3 0 4 [1] yyyy-MM-dd HH:mm:ss", "Time|A|B"},
        {"statistics alone", "Time,A\n,Avg\n2021-03-01 09:00:00,1\n2021-03-01 09:01:00,2\n",
         "comma . 1 0 3 [1] yyyy-MM-dd HH:mm:ss", "Time|A"},
    };
    for (const auto& [what, text, expected, names] : files) {
        const TextLayout layout = detect(text);
        EXPECT_EQ(brief(layout), expected) << what;
        EXPECT_EQ(namesOf(layout), names) << what;
        EXPECT_FALSE(layout.plain) << what;
        EXPECT_NE(layoutSummary(layout), "") << what;
    }
}

TEST(LayoutDetectorTest, LeavesThePlainLayoutAlone) {
    const std::string day = "2008/02/25 11:0";
    const Table<const char*, std::string, char, char> files = {
        {"headings and time first", "Time,A,B\n" + day + "0:00,1.5,2\n" + day + "1:00,1.6,\n", ',',
         '.'},
        {"no headings", day + "0:00,1.5\n" + day + "1:00,1.6\n", ',', '.'},
        {"decimal comma", "Time;A\n" + day + "0:00;1,5\n", ';', ','},
        {"headings alone", "Time,A\n", ',', '.'},
        {"nothing", "", ',', '.'},
        {"texts alone", "Time,A\nx,on\ny,off\n", ',', '.'},
        {"blank lines in front", "\n,,\nTime,A\n" + day + "0:00,1\n", ',', '.'},
        {"notes between the rows",
         "Time,A,B\n" + day + "0:00,1,2\n" + day + "1:00,restarted\n" + day + "2:00,1,2\n", ',',
         '.'},
    };
    for (const auto& [what, text, expected, decimal] : files)
        EXPECT_TRUE(detect(text, expected, decimal).plain) << what;
}

TEST(LayoutDetectorTest, SaysWhatIsNoTable) {
    const std::string line = "This is a letter with many words in it, and no table\n";
    const Table<std::string, const char*> files = {
        {"\n<!DOCTYPE html><html><body>404, not found</body></html>", "a web page"},
        {"[{\"time\": \"2021-01-01\", \"v\": 3},\n{\"time\": \"2021-01-02\", \"v\": 4}]", "JSON"},
        {std::string("\x7f"
                     "ELF\x01\x02\0\0\0\x03",
                     10),
         "binary data"},
        {line + "Dear sir,\n" + line + line + "yours truly, the one who writes it all\n" + line,
         "text"},
        {"# Pump test\n\nSome words about it here.\nMore words, and more of them.\n\n"
         "* the first list\n* another one\n",
         "text"},
        {"Time,A\n2020-01-01 00:00:00,[1]\n", ""},
    };
    for (const auto& [text, expected] : files)
        EXPECT_EQ(detect(text).notATable, expected) << text;
}

// Lines that are out of line neither border the table nor take its place.
TEST(LayoutDetectorTest, TakesAPlainFileAsItStands) {
    std::string rows;
    for (int i = 10; i < 60; ++i)
        rows += "2021-03-09 10:" + std::to_string(i) + ":00,1." + std::to_string(i) + "\n";
    const Table<const char*, std::string> files = {
        {"early text", "Time,T\n2021-03-09 09:00:00,over\n" + rows},
        {"first time unreadable", "Time,T\ninvalid,1.5\n" + rows},
        {"note", "Time,T\n2021-03-09 09:00:00,1\n*** restart ***\n" + rows},
        {"last text", "Time,T\n" + rows + "invalid,7.5\n"},
        {"row numbers of an earlier load", "Row,A\n1,0.5\n2,0.7\n3,0.2\n"},
        {"states", "Time,State\n2021-03-09 09:00:00,on\n2021-03-09 09:01:00,off\n"},
        {"longer rows", "Time,T\n2021-03-09 09:00:00,1,2\n" + rows + "2021-03-09 11:00:00,,,3\n"},
        {"halves of the day", "Time,Dir\n01/02/2020 01:00:00 AM,N\n01/02/2020 02:00:00 AM,E\n"},
    };
    for (const auto& [name, text] : files) {
        const TextLayout layout = detect(text);
        EXPECT_TRUE(layout.plain) << name << ": " << brief(layout);
        EXPECT_EQ(layout.firstDataLine, 2) << name;
        EXPECT_EQ(layout.footerLines, 0) << name;
    }
    std::string other = "Time;T;N\n2021-03-09 09:00:00;;on\n";
    for (int i = 10; i < 20; ++i)
        other += "2021-03-09 10:" + std::to_string(i) + ":00;" + (i % 3 ? "1,5;7\n" : ";\"a b\"\n");
    EXPECT_EQ(brief(detect(other)), "semicolon , 1 0 2 [1] yyyy-MM-dd HH:mm:ss");
    const TextLayout padded = detect("\"Time\", \"a\"\n\"2020-01-01 00:00:00\", \"x, 1\"\n"
                                     "\"2020-01-01 01:00:00\", \"x, 2\"\n");
    EXPECT_TRUE(padded.dialect.blanks);
    EXPECT_EQ(padded.columns, 2U);
}

TEST(LayoutDetectorTest, TellsWhereATableEndsAndFurtherOnesBegin) {
    std::string rows;
    for (int i = 10; i < 60; ++i)
        rows += "2021-03-09 10:" + std::to_string(i) + ":00,1." + std::to_string(i) + "\n";
    const TextLayout two = detect("Site,A\n\nTime,T\n" + rows + "\nTime,P\n" + rows);
    EXPECT_EQ(brief(two), "comma . 3 0 4 [1] yyyy-MM-dd HH:mm:ss");
    EXPECT_EQ(two.lastDataLine, 53);
    EXPECT_EQ(two.furtherTables, std::vector<std::int64_t>{55});

    const TextLayout footer =
        detect("Time,T\n" + rows + "\nT: temperature of the air\nEnd of file\n");
    EXPECT_EQ(footer.lastDataLine, 51);
    EXPECT_EQ(footer.footerLines, 2);
    EXPECT_TRUE(detect("Time,T\n" + rows + "Time,T\n" + rows).furtherTables.empty());

    const TextLayout ragged = detect("Time,T\n" + rows + "2021-03-09 11:00:00,1,2\n");
    EXPECT_EQ(ragged.changedFieldsLine, 52);
    EXPECT_EQ(ragged.columns, 3U);
    EXPECT_EQ(layoutSummary(ragged), "Another number of fields from line 52");

    std::string large = "Time,T\n";
    for (int i = 0; i < 150; ++i)
        large += rows;
    const TextLayout end = detect(large + "Total,\n");
    EXPECT_EQ(end.dataEnd, static_cast<std::int64_t>(large.size()));
}

TEST(LayoutDetectorTest, NamesTheTextsThatStandForNoValue) {
    const TextLayout layout =
        detect("Time,A,B,C\n2020-01-01 00:00:00,1.5,-9999,-9999.5\n"
               "2020-01-01 00:01:00,NAN,2,-9999.1\n2020-01-01 00:02:00,---,3,-9998.1\n");
    EXPECT_EQ(layout.missing, (std::vector<std::string>{"NAN", "---", "-9999"}));
}

TEST(LayoutDetectorTest, TellsWhereSuchATextIsAValueAllTheSame) {
    const TextLayout layout = detect("Time,Level,Depth\n2020-01-01 00:00:00,1.5,-12000\n"
                                     "2020-01-01 00:01:00,-9999,-9999\n"
                                     "2020-01-01 00:02:00,3,-8000\n");
    EXPECT_EQ(layout.missing, std::vector<std::string>{"-9999"});
    EXPECT_EQ(layout.ownValues, (std::vector<TextLayout::OwnValue>{{2, 0}}));
}

TEST(LayoutDetectorTest, FollowsWishes) {
    static const InternationalSettings settings;
    const TextSample sample = TextSample::ofText("a;b;c\nx;y;z\n1;2;3\n4;5;6\n");
    LayoutWishes wishes;
    wishes.separator = ';';
    wishes.headingsLine = 1;
    wishes.unitsLine = 2;
    wishes.dataLine = 3;
    wishes.timeColumns = {1};
    wishes.timeFormat = "elapsed-ms";
    const TextLayout layout = LayoutDetector(',', settings).detect(sample, wishes);
    EXPECT_EQ(brief(layout), "semicolon . 1 2 3 [2] elapsed-ms");
    EXPECT_EQ(layout.units, (std::vector<std::string>{"x", "y", "z"}));
    EXPECT_EQ(layoutSummary(layout),
              "Time from column 2, separated by semicolon, units from line 2");
    EXPECT_EQ(layout.missed, "");
    const auto missed = [&] { return LayoutDetector(',', settings).detect(sample, wishes).missed; };
    wishes.timeFormat = "dd/MM/yyyy";
    EXPECT_EQ(missed(), "time of the form dd/MM/yyyy");
    wishes.timeColumns = {3};
    EXPECT_EQ(missed(), "column 4");
    wishes.unitsLine = 5;
    EXPECT_EQ(missed(), "line 5");
}

} // namespace
} // namespace pellam
