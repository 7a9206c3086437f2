-- Clients that must not see each other's rows in one database: row-level security by database file.
--
--   sudo -u postgres psql -d nominas -f clients.sql            after roles.sql, with the same names
--   sudo -u postgres psql -d nominas -v clients=clientes -f clients.sql
--
-- A third group beside those of roles.sql, whose members see all files. A member of this one sees what zendara_grants
-- says, and nothing without a row there:
--
--   INSERT INTO zendara_grants VALUES ('perez', 'NOM00012.MDB', 'write'), ('perez', 'N00012__.MDB', 'write'), ...
\set ON_ERROR_STOP on
\if :{?writers} \else \set writers zendara_writers \endif
\if :{?readers} \else \set readers zendara_readers \endif
\if :{?clients} \else \set clients zendara_clients \endif
\if :{?schema} \else \set schema public \endif
SELECT current_database() AS database, pg_get_userbyid(datdba) AS owner
FROM pg_database WHERE datname = current_database() \gset
SELECT to_regclass(quote_ident(:'schema') || '.zendara_files') IS NULL AS empty \gset
\if :empty
  DO $$ BEGIN RAISE EXCEPTION 'the first company has to be made before'; END $$;
\endif

BEGIN;
SET LOCAL client_min_messages = warning;
SELECT format('CREATE ROLE %I NOLOGIN', :'clients')
WHERE NOT EXISTS (SELECT FROM pg_roles WHERE rolname = :'clients') \gexec
GRANT CONNECT ON DATABASE :"database" TO :"clients";
SET LOCAL ROLE :"owner";
GRANT USAGE ON SCHEMA :"schema" TO :"clients";
SET LOCAL search_path = :"schema";

-- member: a login. file: a pattern of LIKE over names of files, in upper case; the file need not be there yet.
-- access: 'open', the file is found and has no rows; 'read'; 'write'.
CREATE TABLE IF NOT EXISTS zendara_grants (
  member name,
  file text COLLATE "C" CHECK (file = upper(file)),
  access text NOT NULL CHECK (access IN ('open', 'read', 'write')),
  PRIMARY KEY (member, file));
ALTER TABLE zendara_grants ENABLE ROW LEVEL SECURITY;
DROP POLICY IF EXISTS own ON zendara_grants;
CREATE POLICY own ON zendara_grants FOR SELECT USING (member = current_user);
REVOKE ALL ON zendara_grants FROM :"writers", :"readers";
GRANT SELECT ON zendara_grants TO :"clients";

-- For the policies of deletion, which would pass over a row without a word: an error if the file is one that is seen.
CREATE OR REPLACE FUNCTION zendara_refuse(name text) RETURNS boolean LANGUAGE plpgsql STABLE AS $$
BEGIN
  IF EXISTS (SELECT FROM zendara_grants WHERE member = current_user AND access <> 'open' AND name LIKE file) THEN
    RAISE insufficient_privilege USING MESSAGE = format('permission denied to delete rows of %s', name);
  END IF;
  RETURN false;
END $$;

-- Whoever makes a relation calls it, as the owner: policies by the file of each row, and the privileges of the
-- clients. Without the call clients get nothing. A list of grants is made once for each statement.
SELECT format($body$
CREATE OR REPLACE FUNCTION zendara_protect(relation regclass) RETURNS void LANGUAGE plpgsql AS $$
DECLARE
  names_files boolean := relation IN (to_regclass('zendara_files'), to_regclass('zendara_queries'));
  granted text := 'zendara_file LIKE ANY (ARRAY(SELECT file FROM zendara_grants WHERE member = current_user %%s))';
  seen text := format(granted, CASE WHEN names_files THEN '' ELSE 'AND access <> ''open''' END);
  written text := format(granted, 'AND access = ''write''');
  old name;
BEGIN
  EXECUTE format('GRANT SELECT ON %%s TO %1$I', relation);
  IF NOT EXISTS (SELECT FROM pg_attribute WHERE attrelid = relation AND attname = 'zendara_file') THEN RETURN; END IF;
  EXECUTE format('ALTER TABLE %%s ENABLE ROW LEVEL SECURITY', relation);
  FOR old IN SELECT polname FROM pg_policy WHERE polrelid = relation LOOP
    EXECUTE format('DROP POLICY %%I ON %%s', old, relation);
  END LOOP;
  EXECUTE format('CREATE POLICY zendara_all ON %%s TO %2$I, %3$I USING (true)', relation);
  EXECUTE format('CREATE POLICY zendara_see ON %%s FOR SELECT TO %1$I USING (%%s)', relation, seen);
  EXECUTE format('CREATE POLICY zendara_add ON %%s FOR INSERT TO %1$I WITH CHECK (%%s)', relation, written);
  EXECUTE format('CREATE POLICY zendara_change ON %%s FOR UPDATE TO %1$I USING (%%s) WITH CHECK (%%s)',
                 relation, seen, written);
  EXECUTE format('CREATE POLICY zendara_delete ON %%s FOR DELETE TO %1$I USING (%%s OR zendara_refuse(zendara_file))',
                 relation, written);
  EXECUTE format('GRANT INSERT, UPDATE, DELETE ON %%s TO %1$I', relation);
END $$
$body$, :'clients', :'writers', :'readers') \gexec

GRANT USAGE, SELECT ON ALL SEQUENCES IN SCHEMA :"schema" TO :"clients";
ALTER DEFAULT PRIVILEGES IN SCHEMA :"schema" GRANT USAGE, SELECT ON SEQUENCES TO :"clients";
SELECT zendara_protect(c.oid) FROM pg_class AS c
WHERE c.relkind = 'r' AND c.relnamespace = :'schema'::regnamespace AND c.relname <> 'zendara_grants'
\g /dev/null
COMMIT;
