-- Who may do what in a database of Zendara's: groups for reading and for writing, which logins are put into.
--
--   sudo -u postgres psql -d nominas -f roles.sql
--   sudo -u postgres psql -d nominas -v writers=oficina -v readers=revisores -f roles.sql
--
-- By a superuser, or by the owner of the database if he may create roles. Before or after there are tables; again at any
-- time. Tables are made by the owner of the database; whoever else makes one keeps it for himself.
\set ON_ERROR_STOP on
\if :{?writers} \else \set writers zendara_writers \endif
\if :{?readers} \else \set readers zendara_readers \endif
\if :{?schema} \else \set schema public \endif
SELECT current_database() AS database, pg_get_userbyid(datdba) AS owner
FROM pg_database WHERE datname = current_database() \gset

BEGIN;
SELECT format('CREATE ROLE %I NOLOGIN', name) FROM unnest(ARRAY[:'writers', :'readers']) AS name
WHERE NOT EXISTS (SELECT FROM pg_roles WHERE rolname = name) \gexec

REVOKE CONNECT ON DATABASE :"database" FROM PUBLIC;
GRANT CONNECT ON DATABASE :"database" TO :"writers", :"readers";
GRANT CREATE ON SCHEMA :"schema" TO :"owner";
SET LOCAL ROLE :"owner";
GRANT USAGE ON SCHEMA :"schema" TO :"writers", :"readers";

-- The tables that are there, and those that come.
GRANT SELECT ON ALL TABLES IN SCHEMA :"schema" TO :"readers";
GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA :"schema" TO :"writers";
GRANT USAGE, SELECT ON ALL SEQUENCES IN SCHEMA :"schema" TO :"writers";
ALTER DEFAULT PRIVILEGES IN SCHEMA :"schema" GRANT SELECT ON TABLES TO :"readers";
ALTER DEFAULT PRIVILEGES IN SCHEMA :"schema" GRANT SELECT, INSERT, UPDATE, DELETE ON TABLES TO :"writers";
ALTER DEFAULT PRIVILEGES IN SCHEMA :"schema" GRANT USAGE, SELECT ON SEQUENCES TO :"writers";
COMMIT;
