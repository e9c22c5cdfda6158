#!/usr/bin/env bash
# Makes an SQLite database with a few logging sessions: make_sample_database.sh OUT.db
# The same bytes of data every time; an earlier file is replaced. Needs sqlite3 alone.
set -euo pipefail
out=${1:?usage: make_sample_database.sh OUT.db}
mkdir -p "$(dirname -- "$out")"
new=$(mktemp -- "$out.XXXXXX")
trap 'rm -f -- "$new"' EXIT

sqlite3 -bail "$new" <<'SQL'
BEGIN;
CREATE TABLE data_header(
  channel_count INTEGER, session_date TIMESTAMP, session_id VARCHAR(255) PRIMARY KEY,
  session_info VARCHAR(255), session_notes VARCHAR(255));
CREATE TABLE data_details(
  address VARCHAR(255), data_alarm_max DOUBLE, data_alarm_min DOUBLE, label VARCHAR(255),
  logged_index INTEGER, port_id VARCHAR(255), return_index INTEGER, schedule VARCHAR(255),
  schedule_index INTEGER, schedule_rate_in_seconds INTEGER, session_id VARCHAR(255),
  session_index INTEGER, site_id VARCHAR(255), units VARCHAR(255), value_type INTEGER,
  job VARCHAR(255));
CREATE TABLE data_data(
  address VARCHAR(255), data_status INTEGER, data_time TIMESTAMP, data_value DOUBLE,
  schedule VARCHAR(255), schedule_index INTEGER, sub_time INTEGER, label VARCHAR(255),
  job VARCHAR(255), session_id VARCHAR(255), site_id VARCHAR(255));

INSERT INTO data_header VALUES
  (6, '2024-02-01 00:00:00', 'Boiler house February', 'Heating season', 'Burner serviced on the 9th'),
  (4, '2024-05-01 00:00:00', 'Reservoirs in May', 'Two dams', ''),
  (3, '2024-03-11 14:30:00', 'Crane test', 'Load cells, four readings a second', ''),
  (3, '2024-07-06 00:00:00', 'Grüner Hügel Juli', 'Luftgüte', 'Straße gesperrt'),
  (4, '2024-04-02 08:00:00', 'Tank calibration', 'One dip an hour', 'Last dip as date and time'),
  (0, '2024-06-01 00:00:00', 'Not started yet', '', '');

-- One row a channel: where it is, what it shows, and how its readings run.
CREATE TEMP TABLE channel(
  session TEXT, site TEXT, job TEXT, address TEXT, schedule TEXT, number INTEGER, rate INTEGER,
  label TEXT, units TEXT, value_type INTEGER, low DOUBLE, high DOUBLE,
  base DOUBLE, swing DOUBLE, period DOUBLE, noise DOUBLE);
INSERT INTO channel VALUES
  ('Boiler house February','Boiler house','Heating','1','A',0,300,'Flow','°C',1,20,95,68,9,86400,2),
  ('Boiler house February','Boiler house','Heating','1','A',1,300,'Return','°C',1,20,80,47,6,86400,2),
  ('Boiler house February','Boiler house','Heating','1','A',2,300,'Gas','l/min',1,0,900,410,260,86400,40),
  ('Boiler house February','Boiler house','Heating','1','B',0,3600,'Heat','kWh',1,0,500,190,95,86400,10),
  ('Boiler house February','Workshop','Heating','2','A',3,300,'Workshop','°C',1,5,35,19,3,86400,1),
  ('Boiler house February','Workshop','Power','2','X',0,900,'Mains','W',1,0,9000,3600,2400,43200,500),
  ('Reservoirs in May','North dam','Levels','1','A',0,900,'Level','mm',1,0,12000,7400,420,604800,6),
  ('Reservoirs in May','North dam','Flow','1','A',1,900,'Outflow','l/s',1,0,4000,850,300,172800,25),
  ('Reservoirs in May','South dam','Levels','2','C',0,1800,'Level','mm',1,0,9000,5100,260,604800,5),
  ('Reservoirs in May','South dam','Flow','2','C',-1,1800,'Spill way','l/s',1,0,4000,120,119,259200,9),
  ('Crane test','Yard','Load','1','D',0,1,'Left cell','kN',1,0,400,180,120,40,6),
  ('Crane test','Yard','Load','1','D',1,1,'Right cell','kN',1,0,400,175,118,40,6),
  ('Crane test','Yard','Load','1','D',2,1,'Tilt','mrad',1,-200,200,0,35,11,3),
  ('Grüner Hügel Juli','Kuppe','Luftgüte','1','A',0,600,'Ozon','µg/m³',1,0,240,96,54,86400,7),
  ('Grüner Hügel Juli','Kuppe','Luftgüte','1','A',1,600,'Feinstaub','µg/m³',1,0,80,21,9,86400,4),
  ('Grüner Hügel Juli','Straße','Verkehr','2','V',0,1,'Zählung','1/h',1,0,3000,640,590,86400,60),
  ('Tank calibration','Tank 4','Dips','1','A',0,3600,'Dip','mm',1,0,5000,2600,900,259200,4),
  ('Tank calibration','Tank 4','Dips','1','A',1,3600,'Volume','l',1,0,80000,41000,14200,259200,60),
  ('Tank calibration','Tank 4','Dips','1','A',2,3600,'Last Date','',4,0,0,0,0,1,0),
  ('Tank calibration','Tank 4','Dips','1','A',3,3600,'Last Time','',2,0,0,0,0,1,0);

INSERT INTO data_details
SELECT address, high, low, label, rowid, 'COM' || address, number, schedule, number, rate, session,
       rowid, site, units, value_type, job FROM channel;

-- How long each session ran, and how many readings a second of its clock.
CREATE TEMP TABLE run(session TEXT, start INTEGER, seconds INTEGER, parts INTEGER);
INSERT INTO run VALUES
  ('Boiler house February', strftime('%s','2024-02-01 00:00:00'), 14*86400, 1),
  ('Reservoirs in May',     strftime('%s','2024-05-01 00:00:00'), 31*86400, 1),
  ('Crane test',            strftime('%s','2024-03-11 14:30:00'), 300, 4),
  ('Grüner Hügel Juli',     strftime('%s','2024-07-06 00:00:00'), 7*86400, 1),
  ('Tank calibration',      strftime('%s','2024-04-02 08:00:00'), 5*86400, 1);

WITH RECURSIVE step(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM step WHERE n < 4031),
reading AS (
  SELECT channel.*, channel.rowid AS seed, n % parts AS part, parts, start, n,
         n / parts * (CASE schedule WHEN 'V' THEN 900 ELSE rate END) AS at
  FROM channel JOIN run USING (session) JOIN step
  WHERE n / parts * (CASE schedule WHEN 'V' THEN 900 ELSE rate END) < seconds),
shaped AS (
  SELECT *, (n * 7919 + seed * 104729) % 2003 / 1001.5 - 1 AS chance,
         sin(6.283185307179586 * (at + part * 1.0 / parts) / period + seed) AS wave FROM reading)
INSERT INTO data_data
SELECT address, CASE WHEN (n + seed * 37) % 997 = 500 THEN 2 ELSE 0 END,
       datetime(start + at, 'unixepoch'),
       CASE WHEN label LIKE 'Last%' THEN (start + at - n % 7 * 40) / 86400.0 + 25569
            ELSE round(base + swing * wave + noise * chance, 3) END,
       schedule, number, part * 1000000 / parts, label, job, session, site
FROM shaped
-- A stop for service, and a reading now and then that did not come.
WHERE NOT (session = 'Boiler house February' AND at BETWEEN 691200 AND 702000)
  AND (n * 31 + seed * 17) % 211 <> 5;

-- A probe that the set-up does not list.
INSERT INTO data_data VALUES
  ('1', 1, '2024-04-03 12:30:00', 5, 'A', 9, 0, 'Spare', 'Dips', 'Tank calibration', 'Tank 4');

-- What the queries look for: channels of a session, readings of a session in the order of time.
CREATE INDEX data_details_session ON data_details(session_id, schedule, schedule_index);
CREATE INDEX data_data_session ON data_data(session_id, data_time, sub_time, schedule, schedule_index);
COMMIT;
ANALYZE;
SQL
chmod 644 -- "$new"
mv -- "$new" "$out"
echo "$out: $(sqlite3 "$out" 'SELECT count(*) FROM data_header') sessions," \
    "$(sqlite3 "$out" 'SELECT count(*) FROM data_data') readings"
